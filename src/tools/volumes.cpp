// SPDX-License-Identifier: MIT
#include "tools/volumes.h"

#include "base/words.h"
#include "tools/block_devices.h"
#include "tools/mount_table.h"

#include <QSet>

#include <algorithm>
#include <optional>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

// A label is shown in menus and messages and comes from any stick.
constexpr qsizetype longestLabel = 255;

// By name, since the kernel does not tell; FUSE names its file systems behind a dot.
bool isNetwork(const QString& fileSystem)
{
    static const QSet<QString> known = {u"nfs"_s,
                                        u"nfs4"_s,
                                        u"cifs"_s,
                                        u"smb3"_s,
                                        u"smbfs"_s,
                                        u"ncpfs"_s,
                                        u"afs"_s,
                                        u"coda"_s,
                                        u"ceph"_s,
                                        u"9p"_s,
                                        u"virtiofs"_s,
                                        u"vboxsf"_s,
                                        u"prl_fs"_s,
                                        u"lustre"_s,
                                        u"davfs"_s,
                                        u"fuse.sshfs"_s,
                                        u"fuse.ceph"_s,
                                        u"fuse.davfs2"_s,
                                        u"fuse.glusterfs"_s,
                                        u"fuse.rclone"_s,
                                        u"fuse.s3fs"_s,
                                        u"fuse.smbnetfs"_s,
                                        u"fuse.curlftpfs"_s,
                                        u"fuse.vmhgfs-fuse"_s};
    return known.contains(fileSystem);
}

// File systems that packages and live systems mount from image files.
bool isSystemImage(const QString& fileSystem)
{
    return fileSystem == u"squashfs" || fileSystem == u"erofs" || fileSystem == u"overlay";
}

// A RAM disk counts as a drive only where people mount drives: systems are full of others.
bool isRamPlace(const QString& folder)
{
    return folder.startsWith(u"/media/") || folder.startsWith(u"/mnt/") || folder == u"/mnt" ||
           folder.startsWith(u"/run/media/");
}

// These show a part of themselves ("subvolume") where others would show a bound folder.
bool hasSubvolumes(const QString& fileSystem)
{
    return fileSystem == u"btrfs" || fileSystem == u"bcachefs";
}

// The value of "size=" in the options of a tmpfs, which counts in KiB, MiB or GiB.
qint64 tmpfsSize(const QByteArray& options)
{
    for (const QByteArray& option : options.split(',')) {
        if (!option.startsWith("size="))
            continue;
        const QByteArray text = option.mid(5);
        const char unit = text.isEmpty() ? ' ' : text.back();
        const int shift = unit == 'k' ? 10 : unit == 'm' ? 20 : unit == 'g' ? 30 : 0;
        const qint64 number = (shift == 0 ? text : text.chopped(1)).toLongLong();
        // Bounded so that the shift stays in 64 bits.
        return number > 0 && number < (1LL << 31) ? number << shift : 0;
    }
    return 0;
}

QString cleanLabel(QString label)
{
    // Labels are padded with zeros on some file systems; line breaks in one would fake lines of a
    // message.
    label.truncate(label.indexOf(QChar(u'\0')) < 0 ? longestLabel : label.indexOf(QChar(u'\0')));
    for (QChar& c : label) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return label.left(longestLabel);
}

QString lastFolder(const QString& path)
{
    return path.mid(path.lastIndexOf(u'/') + 1);
}

class Survey {
public:
    explicit Survey(const DriveSource& source)
        : m_blocks(source), m_entries(mountEntries(source.read(mountTablePath)))
    {
    }

    std::vector<Volume> volumes()
    {
        std::vector<Volume> found;
        QSet<QString> seen;
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (hidden(i))
                continue;
            std::optional<Volume> volume = volumeOf(m_entries[i]);
            if (!volume)
                continue;
            if (volume->root)
                dropTwin(found, volume->key);
            // A volume that is mounted twice gets one letter, at its first place.
            else if (seen.contains(volume->key))
                continue;
            seen.insert(volume->key);
            found.push_back(std::move(*volume));
        }
        return found;
    }

private:
    // A later mount on the same folder hides this one.
    [[nodiscard]] bool hidden(std::size_t place)
    {
        if (m_lastAt.isEmpty()) {
            for (std::size_t i = 0; i < m_entries.size(); ++i)
                m_lastAt[m_entries[i].folder] = i;
        }
        return m_lastAt.value(m_entries[place].folder) != place;
    }

    // The root file system keeps its place at "/" even if it was seen elsewhere before.
    static void dropTwin(std::vector<Volume>& found, const QString& key)
    {
        found.erase(std::remove_if(found.begin(), found.end(),
                                   [&](const Volume& volume) { return volume.key == key; }),
                    found.end());
    }

    [[nodiscard]] std::optional<Volume> volumeOf(const MountEntry& entry) const
    {
        Volume volume;
        volume.root = entry.folder == u"/";
        volume.mountFolder = entry.folder;
        volume.source = entry.source;
        volume.fileSystem = entry.fileSystem;
        volume.block = m_blocks.byNumber(entry.major, entry.minor);
        if (volume.block.isEmpty() && (hasSubvolumes(entry.fileSystem) || volume.root))
            volume.block = m_blocks.bySource(entry.source);
        const bool isDrive =
            volume.block.isEmpty() ? fillWithoutBlock(entry, volume) : fillFromBlock(entry, volume);
        // The root always counts, whatever it lies on.
        if (!isDrive && !volume.root)
            return std::nullopt;
        if (volume.label.isEmpty())
            volume.label = cleanLabel(lastFolder(entry.folder));
        return volume;
    }

    [[nodiscard]] bool fillFromBlock(const MountEntry& entry, Volume& volume) const
    {
        const auto properties = m_blocks.properties(volume.block);
        // The encoded form keeps what the plain one replaces by "_".
        const QString encoded = properties.value(u"ID_FS_LABEL_ENC"_s);
        volume.label = cleanLabel(encoded.isEmpty() ? properties.value(u"ID_FS_LABEL"_s)
                                                    : decodeUdevText(encoded));
        // With the file system's own number: another stick in the same slot gets the same block
        // name.
        volume.key = volume.block + u' ' + properties.value(u"ID_FS_UUID"_s);
        volume.size = m_blocks.size(volume.block);
        fillKind(volume);
        // A folder that is mounted a second time elsewhere is no drive.
        const bool bound = entry.root != u"/" && !hasSubvolumes(entry.fileSystem);
        return !bound && !isSystemImage(entry.fileSystem);
    }

    void fillKind(Volume& volume) const
    {
        const QStringList disks = m_blocks.disksUnder(volume.block);
        const auto any = [&](auto test) { return std::any_of(disks.begin(), disks.end(), test); };
        if (any([&](const QString& disk) { return m_blocks.isCdRom(disk); }))
            volume.kind = VolumeKind::CdRom;
        else if (any([&](const QString& disk) { return m_blocks.isRemovable(disk); }))
            volume.kind = VolumeKind::Removable;
        // Floppies keep the letters A and B.
        if (volume.block == u"fd0" || volume.block == u"fd1") {
            volume.floppy = volume.block.endsWith(u'1') ? 1 : 0;
            volume.kind = VolumeKind::Removable;
        }
    }

    [[nodiscard]] static bool fillWithoutBlock(const MountEntry& entry, Volume& volume)
    {
        volume.key = entry.source + u' ' + entry.folder;
        const bool memory = entry.fileSystem == u"tmpfs" || entry.fileSystem == u"ramfs";
        if (memory && isRamPlace(entry.folder)) {
            volume.kind = VolumeKind::Ram;
            volume.size = tmpfsSize(entry.options);
            return true;
        }
        if (isNetwork(entry.fileSystem)) {
            volume.kind = VolumeKind::Network;
            return true;
        }
        // zfs keeps its devices to itself, but is a local disk.
        return entry.fileSystem == u"zfs";
    }

    BlockDevices m_blocks;
    std::vector<MountEntry> m_entries;
    QHash<QString, std::size_t> m_lastAt;
};

} // namespace

QString kindLabel(VolumeKind kind)
{
    switch (kind) {
    case VolumeKind::Removable:
        return Words::tr("Removable drive ");
    case VolumeKind::Local:
        return Words::tr("Local drive ");
    case VolumeKind::Network:
        return Words::tr("Network drive ");
    case VolumeKind::CdRom:
        return Words::tr("CD-ROM drive ");
    case VolumeKind::Ram:
        return Words::tr("RAM drive ");
    }
    return {};
}

std::vector<Volume> volumesOf(const DriveSource& source)
{
    return Survey(source).volumes();
}

// udev writes bytes that it does not trust as a backslash, "x" and two hexadecimal digits.
QString decodeUdevText(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    QByteArray decoded;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const QByteArray code = bytes.mid(i + 2, 2);
        const bool escape = bytes[i] == '\\' && bytes.mid(i + 1, 1) == "x" && code.size() == 2 &&
                            QByteArray::fromHex(code).toHex() == code.toLower();
        decoded.append(escape ? QByteArray::fromHex(code).front() : bytes[i]);
        i += escape ? 3 : 0;
    }
    return QString::fromUtf8(decoded);
}

QString sizeText(qint64 bytes)
{
    if (bytes <= 0)
        return {};
    double amount = static_cast<double>(bytes);
    for (const char16_t* unit : {u"bytes", u"KB", u"MB", u"GB", u"TB"}) {
        if (amount < 1024 || unit == std::u16string_view(u"TB")) {
            // One decimal only where it says something.
            const bool whole = amount >= 10 || unit == std::u16string_view(u"bytes");
            return QString::number(amount, 'f', whole ? 0 : 1) + u' ' + QString::fromUtf16(unit);
        }
        amount /= 1024;
    }
    return {};
}

} // namespace fennel
