// SPDX-License-Identifier: MIT
#include "container/member_table.h"

#include "base/files.h"
#include "base/text.h"

#include <QFile>
#include <QStringDecoder>

#include <sys/stat.h>

namespace fennel {

namespace {

// Framed in bars, so that a name is only found whole.
const QString requiredMembers = QStringLiteral("|init|16x16.fnt|ZUK0000.CFG|back.jpg|");

// Asked only where no pattern of the catalogue fits.
constexpr std::array<MemberPattern, 8> endings = {{
    {"*.jpg", MemberKind::Picture},
    {"*.pcx", MemberKind::Picture},
    {"*.fnt", MemberKind::Font},
    {"*.txt", MemberKind::Text},
    {"*.cfg", MemberKind::Text},
    {"*.tr", MemberKind::Text},
    {"*.hlp", MemberKind::Text},
    {"*.mod", MemberKind::Sound},
}};

template <std::size_t N>
const MemberPattern* fitting(const std::array<MemberPattern, N>& patterns, const QString& name)
{
    for (const MemberPattern& entry : patterns) {
        if (fitsPattern(name, QString::fromLatin1(entry.pattern)))
            return &entry;
    }
    return nullptr;
}

} // namespace

QString backgroundFile(const QString& folder, qint64 number)
{
    // Two digits; without that picture the common background shows.
    const QString digits = QString::number(100 + number).right(2);
    const QString path = folder + QStringLiteral("back_%1.jpg").arg(digits);
    return FileExists(path) ? path : folder + mainBackName;
}

MemberKind memberKind(const QString& name)
{
    const MemberPattern* entry = fitting(memberPatterns, name);
    if (entry == nullptr)
        entry = fitting(endings, name);
    return entry == nullptr ? MemberKind::Unknown : entry->kind;
}

std::size_t memberPlace(const QString& name)
{
    const MemberPattern* entry = fitting(memberPatterns, name);
    return entry == nullptr ? memberPatterns.size()
                            : static_cast<std::size_t>(entry - memberPatterns.data());
}

// With regard to case: "BACK.JPG" is a member like any other.
bool IsRequiredMember(const QString& name)
{
    return requiredMembers.contains(QLatin1Char('|') + name + QLatin1Char('|'));
}

// The bytes are kept beside the text: an archive must be written with the names it was read with,
// whatever their encoding.
MemberName memberName(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    // Old archives have names in the 8-bit code page of their time.
    if (utf8.hasError())
        text = fromCp1251(bytes);
    return {bytes, text};
}

std::vector<MemberName> memberNames(const QByteArray& list)
{
    std::vector<MemberName> names;
    for (QByteArray line : list.split('\n')) {
        line.replace('\r', "");
        if (!line.isEmpty())
            names.push_back(memberName(line));
    }
    return names;
}

qint64 memberSize(const QString& folder, const QByteArray& name)
{
    struct stat info = {};
    // By the raw bytes, as the text may not lead back to them.
    const QByteArray path = QFile::encodeName(folder) + name;
    if (::stat(path.constData(), &info) != 0 || !S_ISREG(info.st_mode))
        return -1;
    return info.st_size;
}

} // namespace fennel
