// SPDX-License-Identifier: MIT
#include "tools/boot_stick.h"

#include "container/archive_tools.h"
#include "container/gzip.h"
#include "menus/menu_file.h"
#include "params/object_table.h"

#include <algorithm>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype wordLength = 6; // of "title "

std::span<const std::uint8_t> bytesOf(const QByteArray& file)
{
    return {reinterpret_cast<const std::uint8_t*>(file.constData()),
            static_cast<std::size_t>(file.size())};
}

} // namespace

Result<QByteArray> messageNow(const Shell& shell, Document& document, bool gzip)
{
    const Staging staging(shell, u"boot_message"_s);
    if (Result<void> made = staging.made(); !made)
        return made.failure();
    if (!document.writeParameters())
        return Failure{FailureKind::Io, "The parameters could not be written.", true};
    QString file = staging.path() + u"/message"_s;
    if (Result<void> assembled = CpioAssemble(shell, file, shell.run.Workspace); !assembled)
        return assembled.failure();
    if (gzip) {
        const Result<QString> packed = SevenZipPack(shell, file, staging.path() + u'/', {});
        if (!packed)
            return packed.failure();
        file = *packed;
    }
    return readBytes(file);
}

QStringList bootTitles(const BootMenu& menu)
{
    if (menu.text.isEmpty())
        return embeddedMenu.split(u'|', Qt::SkipEmptyParts);
    QStringList titles;
    const MenuLines lines(menu.text);
    for (const QStringView line : lines.lines()) {
        if (const auto shown = titleText(line))
            titles.append((menu.hasZuk ? line.mid(wordLength) : *shown).toString());
    }
    if (titles.isEmpty())
        titles.append(QString());
    return titles;
}

Result<BootStick> bootStick(const QByteArray& messageFile, const BootMenu& menu)
{
    BootStick stick{messageFile, bootTitles(menu), menu.loader, menu.text.toUtf8()};
    if (!menu.loader.isEmpty() || !isGzip(bytesOf(messageFile)))
        return stick;
    const Result<GzipContents> plain = gzipDecompress(bytesOf(messageFile));
    if (!plain)
        return plain.failure();
    stick.message = QByteArray(reinterpret_cast<const char*>(plain->data.data()),
                               static_cast<qsizetype>(plain->data.size()));
    return stick;
}

Result<BootStick> bootStick(const Shell& shell, Document& document, const BootMenu& menu)
{
    const bool gzip = shell.run.GfxIsGz && !menu.loader.isEmpty();
    Result<QByteArray> message = messageNow(shell, document, gzip);
    return message ? bootStick(*message, menu) : message.failure();
}

} // namespace fennel
