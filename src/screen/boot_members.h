// SPDX-License-Identifier: MIT
// The members of a gfxboot as the boot engine reads them, each decoded once: pictures, fonts,
// texts.
#pragma once

#include "screen/boot_font.h"

#include <QDateTime>
#include <QImage>
#include <QString>

#include <map>
#include <memory>

namespace fennel {

// Longer members than this are neither fonts nor texts nor pictures of a boot screen.
inline constexpr qint64 bootMemberLimit = 64LL * 1024 * 1024;
inline constexpr int textMemberLimit = 0x8000; // bytes of a text that the engine shows

class BootMembers {
public:
    // A font to print with where the message has none; by the number that was asked for.
    using FontMaker = std::function<std::unique_ptr<BootFont>(int number)>;

    // The folder of the members; one "/" at its end. Another folder empties what is kept.
    void setFolder(const QString& folder);
    // What is kept of files that have changed since goes; asks the disk for each once. True if
    // there were such files.
    bool refresh();
    void setStandIn(FontMaker maker) { m_standIn = std::move(maker); }

    [[nodiscard]] bool has(const QString& name) const;
    // Empty if there is none.
    QByteArray bytes(const QString& name);
    // As the engine decodes it; null for a member that is missing or not bootable.
    QImage picture(const QString& name);
    // Font 0 stands in for one that is missing; without that the stand-in; without either one that
    // is not there().
    const BootFont& font(int number);
    // The lines of the text between "|" and line ends as one text with line feeds; UTF-8 with a
    // mark or if well-formed, else code page 1251.
    QString text(const QString& name);
    // Since the last setFolder() letters were printed with the stand-in, or not at all.
    [[nodiscard]] bool lettersMissing() const { return m_lettersMissing; }
    void forgetMissingLetters() { m_lettersMissing = false; }

private:
    struct Kept {
        QDateTime changed;
        qint64 size = -1; // -1: there is no such file
        QByteArray bytes;
        std::unique_ptr<QImage> picture;
        std::unique_ptr<BootFont> font;
    };
    Kept& kept(const QString& name);
    const BootFont* fontFile(int number);
    void dropPictures();

    QString m_folder;
    FontMaker m_standIn;
    std::map<QString, Kept> m_kept;
    std::map<int, std::unique_ptr<BootFont>> m_standIns;
    bool m_lettersMissing = false;
};

// Bytes as the engine takes them for text: see BootMembers::text(). Control characters are blanks.
QString bootText(const QByteArray& bytes);

// Text broken at line feeds, and at the last blank before `limit` pixels would be reached; a word
// alone is not broken. At most `most` lines.
QStringList bootLines(const QString& text, const BootFont& font, int limit, int most);

} // namespace fennel
