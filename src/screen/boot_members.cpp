// SPDX-License-Identifier: MIT
#include "screen/boot_members.h"

#include "base/files.h"
#include "base/text.h"
#include "screen/boot_jpeg.h"

#include <QDateTime>
#include <QFileInfo>
#include <QStringDecoder>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int fontNumbers = 100;
constexpr qsizetype keptPictureBytes = 64LL * 1024 * 1024;

QString fontMember(int number)
{
    return number == 0 ? u"16x16.fnt"_s : u"16x16_%1.fnt"_s.arg(number, 2, 10, QChar(u'0'));
}

const QByteArray utf8Mark = QByteArrayLiteral("\xEF\xBB\xBF");

// The font that is none, for all that ask.
const BootFont& noFont()
{
    static const BootFont none{QByteArray()};
    return none;
}

} // namespace

void BootMembers::setFolder(const QString& folder)
{
    if (folder == m_folder)
        return;
    m_folder = folder;
    m_kept.clear();
    m_standIns.clear();
    m_lettersMissing = false;
}

bool BootMembers::refresh()
{
    const auto gone = std::erase_if(m_kept, [this](const auto& item) {
        const QFileInfo file(m_folder + item.first);
        return item.second.size != (file.isFile() ? file.size() : -1) ||
               (item.second.size >= 0 && item.second.changed != file.lastModified());
    });
    return gone > 0;
}

BootMembers::Kept& BootMembers::kept(const QString& name)
{
    if (const auto known = m_kept.find(name); known != m_kept.end())
        return known->second;
    Kept& made = m_kept[name];
    const QString path = m_folder + name;
    // Before it is read: one that changes meanwhile counts as changed.
    const QDateTime changed = QFileInfo(path).lastModified();
    Result<QByteArray> bytes = readBytes(path, bootMemberLimit);
    if (!bytes)
        return made;
    made.changed = changed;
    made.bytes = std::move(*bytes);
    made.size = made.bytes.size();
    return made;
}

bool BootMembers::has(const QString& name) const
{
    const auto known = m_kept.find(name);
    return known != m_kept.end() ? known->second.size >= 0 : QFileInfo(m_folder + name).isFile();
}

QByteArray BootMembers::bytes(const QString& name)
{
    return kept(name).bytes;
}

QImage BootMembers::picture(const QString& name)
{
    Kept& member = kept(name);
    if (!member.picture) {
        dropPictures();
        member.picture = std::make_unique<QImage>(decodeAsBooted(member.bytes));
    }
    return *member.picture;
}

// Whoever looks at one background after the other needs the latest only.
void BootMembers::dropPictures()
{
    qsizetype bytes = 0;
    for (const auto& item : m_kept)
        bytes += item.second.picture ? item.second.picture->sizeInBytes() : 0;
    if (bytes <= keptPictureBytes)
        return;
    for (auto& item : m_kept)
        item.second.picture.reset();
}

const BootFont* BootMembers::fontFile(int number)
{
    Kept& member = kept(fontMember(number));
    if (!member.font)
        member.font = std::make_unique<BootFont>(member.bytes);
    return member.font->there() ? member.font.get() : nullptr;
}

const BootFont& BootMembers::font(int number)
{
    const int wanted = number >= 0 && number < fontNumbers ? number : 0;
    for (const int file : {wanted, 0}) {
        if (const BootFont* found = fontFile(file))
            return *found;
    }
    m_lettersMissing = true;
    if (!m_standIn)
        return noFont();
    std::unique_ptr<BootFont>& made = m_standIns[wanted];
    if (!made)
        made = m_standIn(wanted);
    return made ? *made : noFont();
}

QString BootMembers::text(const QString& name)
{
    QByteArray bytes = kept(name).bytes.left(textMemberLimit);
    return bootText(bytes.replace('|', '\n'));
}

QString bootText(const QByteArray& bytes)
{
    const bool marked = bytes.startsWith(utf8Mark);
    const QByteArray body = marked ? bytes.mid(utf8Mark.size()) : bytes;
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(body);
    if (!marked && utf8.hasError())
        text = fromCp1251(body);
    for (QChar& letter : text) {
        if (letter < u' ' && letter != u'\n')
            letter = u' ';
    }
    return text;
}

namespace {

// The end of the first line of `rest`: its length, or the place of the blank that ends it.
qsizetype lineEnd(QStringView rest, const BootFont& font, int limit)
{
    if (font.width(rest) < limit)
        return rest.size();
    qsizetype cut = -1;
    for (qsizetype blank = rest.indexOf(u' '); blank >= 0; blank = rest.indexOf(u' ', blank + 1)) {
        if (font.width(rest.left(blank)) >= limit)
            return cut < 0 ? blank : cut;
        cut = blank;
    }
    return cut < 0 ? rest.size() : cut;
}

} // namespace

QStringList bootLines(const QString& text, const BootFont& font, int limit, int most)
{
    QStringList lines;
    for (QStringView rest : QStringView(text).split(u'\n')) {
        while (lines.size() < most) {
            const qsizetype end = font.there() ? lineEnd(rest, font, limit) : rest.size();
            lines.append(rest.left(end).toString());
            if (end >= rest.size())
                break;
            rest = rest.mid(end + 1);
        }
    }
    return lines;
}

} // namespace fennel
