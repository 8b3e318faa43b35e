// SPDX-License-Identifier: MIT
#include "tools/stick_save.h"

#include "base/text.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// Where loaders look, below the stick's folder.
constexpr std::array<const char16_t*, 14> configPlaces = {{
    u"syslinux.cfg",
    u"syslinux/syslinux.cfg",
    u"boot/syslinux/syslinux.cfg",
    u"boot/syslinux.cfg",
    u"extlinux.conf",
    u"extlinux/extlinux.conf",
    u"boot/extlinux/extlinux.conf",
    u"isolinux.cfg",
    u"isolinux/isolinux.cfg",
    u"boot/isolinux/isolinux.cfg",
    u"menu.lst",
    u"grub/menu.lst",
    u"boot/menu.lst",
    u"boot/grub/menu.lst",
}};

bool isGrub(const QString& config)
{
    return config.endsWith(u".lst", Qt::CaseInsensitive);
}

// The word behind `key` in a line, which may stand behind others, such as "UI gfxboot message".
QString wordBehind(const QString& line, const QString& key)
{
    const QStringList words = line.simplified().split(u' ');
    for (qsizetype i = 0; i + 1 < words.size(); ++i) {
        const QString bare = namePart(words[i]).toLower();
        if (bare == key || bare == key + u".c32"_s)
            return words[i + 1];
        if (words[i].startsWith(u'#'))
            break;
    }
    return {};
}

// Nothing outside the stick is ever written.
QString belowStick(const QString& config, QString path)
{
    static const QRegularExpression drive(u"^\\([^)]*\\)"_s);
    path.remove(drive).replace(u'\\', u'/');
    const QString whole = path.startsWith(u'/') ? path : u'/' + folderPart(config) + path;
    const QString clean = QDir::cleanPath(whole);
    return clean.startsWith(u"/..") ? QString() : clean.mid(1);
}

// A link that leads nowhere is a name in use, too: what is written there lands where it points.
bool isTaken(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

} // namespace

std::vector<LoaderPlace> loaderPlaces(const QString& config, const QString& text)
{
    const bool grub = isGrub(config);
    std::vector<LoaderPlace> places;
    for (const QString& line : QString(text).remove(u'\r').split(u'\n')) {
        const QString word = wordBehind(line, grub ? u"gfxmenu"_s : u"gfxboot"_s);
        const QString message = word.isEmpty() ? QString() : belowStick(config, word);
        if (!message.isEmpty())
            places.push_back({config, message, !grub});
    }
    return places;
}

QStringList loaderConfigs()
{
    QStringList names;
    for (const char16_t* name : configPlaces)
        names.append(QString::fromUtf16(name));
    return names;
}

std::vector<LoaderPlace> loaderPlacesOf(const QString& folder)
{
    std::vector<LoaderPlace> places;
    for (const QString& config : loaderConfigs()) {
        const Result<QByteArray> bytes = readBytes(folder + config);
        if (!bytes)
            continue;
        for (const LoaderPlace& place : loaderPlaces(config, QString::fromUtf8(*bytes))) {
            const auto same = [&](const LoaderPlace& other) {
                return other.message.compare(place.message, Qt::CaseInsensitive) == 0;
            };
            if (std::none_of(places.begin(), places.end(), same))
                places.push_back(place);
        }
    }
    return places;
}

Result<QString> saveToStick(const Shell& shell, const QString& folder, const LoaderPlace& place,
                            const QByteArray& message)
{
    const QString target = folder + place.message;
    const QString made = shell.run.WorkspaceRoot + u"~stick"_s;
    if (Result<void> written = shell.files.write(made, message); !written)
        return written.failure();
    QString kept;
    if (FileExists(target)) {
        kept = target + u".old"_s;
        for (int number = 2; isTaken(kept); ++number)
            kept = target + u".old"_s + QString::number(number);
        if (Result<void> copied = shell.files.replaceWhole(target, kept); !copied)
            return copied.failure();
    }
    const Result<void> replaced = shell.files.replaceWhole(made, target);
    (void)shell.files.remove(made);
    if (!replaced)
        return replaced.failure();
    return namePart(kept);
}

} // namespace fennel
