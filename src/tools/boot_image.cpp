// SPDX-License-Identifier: MIT
#include "tools/boot_image.h"

#include "base/words.h"
#include "tools/child_process.h"

#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 imageSector = 512;
constexpr qint64 firstSector = 2048; // of the partition
constexpr qint64 sectorsPerMiB = 2048;
// Beside the message: the loader and its modules.
constexpr qint64 spareMiB = 16;
constexpr qsizetype mbrCodeBytes = 440;
// gfxboot.c32 reads lines of 2,048 bytes; the rest of a longer one it would take for the next line.
constexpr qsizetype titleBytes = 1900;

struct Needed {
    const char16_t* name;
    const char16_t* package; // Debian's
};
constexpr Needed programs[] = {
    {u"qemu-system-x86_64", u"qemu-system-x86"},
    {u"syslinux", u"syslinux"},
    {u"mformat", u"mtools"},
    {u"mcopy", u"mtools"},
};
// Where distributions have the parts of syslinux.
const QStringList syslinuxFolders = {u"/usr/lib/syslinux/modules/bios/"_s,
                                     u"/usr/lib/syslinux/mbr/"_s, u"/usr/share/syslinux/"_s,
                                     u"/usr/lib/syslinux/bios/"_s};

Failure missing(const QString& name, const QString& package)
{
    return {FailureKind::NotFound,
            Words::tr("%1 is missing, which the boot test needs: install the package %2.")
                .arg(name, package)
                .toStdString()};
}

QByteArray oneLine(const QString& title)
{
    QString text = title;
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control)
            c = u' ';
    }
    // At a character's end, as half of one would spoil the line.
    qsizetype length = std::min(text.size(), titleBytes);
    while (text.left(length).toUtf8().size() > titleBytes)
        --length;
    if (length > 0 && length < text.size() && text.at(length - 1).isHighSurrogate())
        --length;
    return text.left(length).toUtf8();
}

void put32(QByteArray& bytes, qsizetype at, quint32 value)
{
    for (int i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<char>(value >> (8 * i) & 0xFFU);
}

// The code that starts the active partition, and the table with that one partition. Heads and
// cylinders are those of "too far for them": every BIOS of today reads the sector numbers.
QByteArray bootRecord(const QByteArray& code, qint64 sectors)
{
    constexpr char fat16Lba = 0x0E;
    constexpr qsizetype table = 446;
    QByteArray record = code.left(mbrCodeBytes).leftJustified(imageSector, '\0');
    const QByteArray entry("\x80\xFE\xFF\xFF\x00\xFE\xFF\xFF", 8);
    record.replace(table, entry.size(), entry);
    record[table + 4] = fat16Lba;
    put32(record, table + 8, static_cast<quint32>(firstSector));
    put32(record, table + 12, static_cast<quint32>(sectors));
    record[510] = '\x55';
    record[511] = '\xAA';
    return record;
}

} // namespace

NamelessFile::~NamelessFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

NamelessFile::NamelessFile(NamelessFile&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
{
}

NamelessFile& NamelessFile::operator=(NamelessFile&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

QByteArray syslinuxMenu(const QStringList& titles)
{
    QByteArray menu = "default entry1\nprompt 1\ntimeout 0\nui gfxboot.c32 message\n";
    for (qsizetype i = 0; i < titles.size(); ++i)
        menu += "label entry" + QByteArray::number(i + 1) + "\n  menu label " + oneLine(titles[i]) +
                "\n  localboot -1\n";
    return menu;
}

QByteArray grubMenu(const BootStick& stick)
{
    QByteArray menu = "gfxmenu /message\n";
    // What stands before the titles belongs to the menu's own stick: its message, a timeout.
    const qsizetype first = stick.menu.startsWith("title") ? 0 : stick.menu.indexOf("\ntitle") + 1;
    if (first > 0 || stick.menu.startsWith("title"))
        return menu + stick.menu.mid(first);
    for (const QString& title : stick.titles)
        menu += "title " + oneLine(title) + "\nreboot\n";
    return menu;
}

Result<QString> findProgram(const QString& name)
{
    QString path = QStandardPaths::findExecutable(name);
    if (path.isEmpty())
        path = QStandardPaths::findExecutable(name, {u"/usr/sbin"_s, u"/sbin"_s});
    if (!path.isEmpty())
        return path;
    const auto* known = std::ranges::find_if(
        programs, [&name](const Needed& row) { return name == QStringView(row.name); });
    return missing(name, known == std::end(programs) ? name : QString::fromUtf16(known->package));
}

Result<QString> findSyslinuxFile(const QString& name)
{
    for (const QString& folder : syslinuxFolders) {
        if (FileExists(folder + name))
            return folder + name;
    }
    return missing(name, u"syslinux-common"_s);
}

BootImage::BootImage(const Shell& shell, QObject* parent) : QObject(parent), m_shell(shell) {}

BootImage::~BootImage()
{
    end();
}

void BootImage::end()
{
    m_steps.clear();
    if (m_process)
        killGroup(*m_process);
    m_folder.reset();
}

void BootImage::make(const BootStick& stick)
{
    m_folder.emplace(m_shell, u"boot_test"_s);
    if (const Result<void> laid = lay(stick); !laid) {
        QMetaObject::invokeMethod(
            this, [this, failure = laid.failure()] { fail(failure); }, Qt::QueuedConnection);
        return;
    }
    QMetaObject::invokeMethod(this, &BootImage::next, Qt::QueuedConnection);
}

Result<void> BootImage::layFile(const QString& name, const QByteArray& bytes)
{
    return m_shell.files.write(m_folder->path() + u'/' + name, bytes);
}

Result<void> BootImage::lay(const BootStick& stick)
{
    if (Result<void> made = m_folder->made(); !made)
        return made;
    QStringList modules{u"libcom32.c32"_s, u"libutil.c32"_s,
                        stick.loader.isEmpty() ? u"gfxboot.c32"_s : u"chain.c32"_s};
    QStringList files;
    for (const QString& name : modules) {
        const Result<QString> found = findSyslinuxFile(name);
        if (!found)
            return found.failure();
        files.append(*found);
    }
    std::vector<std::pair<QString, QByteArray>> made{{u"message"_s, stick.message}};
    if (stick.loader.isEmpty()) {
        made.emplace_back(u"syslinux.cfg"_s, syslinuxMenu(stick.titles));
    } else {
        const Result<QByteArray> loader = readBytes(stick.loader);
        if (!loader)
            return loader.failure();
        made.emplace_back(u"grldr"_s, *loader);
        made.emplace_back(u"menu.lst"_s, grubMenu(stick));
        made.emplace_back(u"syslinux.cfg"_s, "default grub\nlabel grub\n  com32 chain.c32\n"
                                             "  append fs ntldr=/grldr\n");
    }
    for (const auto& [name, bytes] : made) {
        if (Result<void> laid = layFile(name, bytes); !laid)
            return laid;
        files.append(m_folder->path() + u'/' + name);
    }
    return planSteps(stick, files);
}

Result<void> BootImage::planSteps(const BootStick& stick, const QStringList& files)
{
    const qint64 mib = spareMiB + (stick.message.size() >> 20);
    const qint64 sectors = mib * sectorsPerMiB - firstSector;
    const Result<QString> code = findSyslinuxFile(u"mbr.bin"_s);
    if (!code)
        return code.failure();
    const Result<QByteArray> codeBytes = readBytes(*code, imageSector);
    if (!codeBytes)
        return codeBytes.failure();
    QStringList found;
    for (const QString& name : {u"qemu-system-x86_64"_s, u"mformat"_s, u"syslinux"_s, u"mcopy"_s}) {
        const Result<QString> path = findProgram(name);
        if (!path)
            return path.failure();
        found.append(*path);
    }
    if (Result<void> laid = layFile(u"stick.img"_s, bootRecord(*codeBytes, sectors)); !laid)
        return laid;
    const QString image = m_folder->path() + u"/stick.img"_s;
    if (!QFile::resize(image, mib << 20))
        return Failure{FailureKind::NoSpace, "The image of the boot test could not be made."};
    const QString partition = image + u"@@"_s + QString::number(firstSector * imageSector);
    m_steps = {{found[3], QStringList{u"-i"_s, partition} + files + QStringList{u"::"_s}},
               {found[2], {u"-t"_s, QString::number(firstSector * imageSector), u"-i"_s, image}},
               {found[1],
                {u"-i"_s, partition, u"-T"_s, QString::number(sectors), u"-h"_s, u"16"_s, u"-s"_s,
                 u"32"_s, u"-H"_s, QString::number(firstSector), u"::"_s}}};
    return {};
}

void BootImage::next()
{
    if (!m_folder) // it was ended meanwhile
        return;
    if (m_steps.empty()) {
        finish();
        return;
    }
    const Step step = m_steps.back();
    m_steps.pop_back();
    m_process = std::make_unique<QProcess>();
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardOutputFile(QProcess::nullDevice());
    m_process->setProgram(step.program);
    m_process->setArguments(step.arguments);
    endWithParent(*m_process);
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            fail({FailureKind::ToolFailed,
                  (namePart(m_process->program()) + Words::tr(" could not be started."))
                      .toStdString()});
    });
    connect(m_process.get(), &QProcess::finished, this, [this](int code) {
        if (code == 0 && m_process->exitStatus() == QProcess::NormalExit) {
            m_process->setParent(this);
            m_process.release()->deleteLater(); // it is the sender
            next();
            return;
        }
        const QString said = QString::fromUtf8(m_process->readAllStandardError()).trimmed();
        fail(
            {FailureKind::ToolFailed, Words::tr("%1 could not make the image of the boot test.\n%2")
                                          .arg(namePart(m_process->program()), said.right(1500))
                                          .toStdString()});
    });
    m_process->start();
}

// The image is opened and its folder goes: whatever ends this program, nothing stays on the disk.
void BootImage::finish()
{
    const QByteArray image = QFile::encodeName(m_folder->path() + u"/stick.img"_s);
    m_image = NamelessFile(::open(image.constData(), O_RDONLY | O_CLOEXEC));
    m_folder.reset();
    if (m_image.descriptor() < 0)
        fail({FailureKind::Io, "The image of the boot test could not be opened."});
    else
        Q_EMIT made();
}

void BootImage::fail(const Failure& failure)
{
    m_folder.reset();
    Q_EMIT failed(failure);
}

} // namespace fennel
