// SPDX-License-Identifier: MIT
// What a member of a gfxboot is follows from its name alone: the known patterns, their order in an
// archive, and the names that must not be deleted.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <vector>

namespace fennel {

enum class MemberKind { Engine, Font, Levels, Picture, Text, Sound, Unknown };

struct MemberPattern {
    const char* pattern; // "?" is one character; letters fit in any case
    MemberKind kind;
};

// In the order in which members stand in an archive that was rebuilt.
inline constexpr std::array<MemberPattern, 17> memberPatterns = {{
    {"init", MemberKind::Engine},
    {"16x16.fnt", MemberKind::Font},
    {"ZUK????.CFG", MemberKind::Levels},
    {"back.jpg", MemberKind::Picture},
    {"en.tr", MemberKind::Text},
    {"languages", MemberKind::Text},
    {"Logo_msk.jpg", MemberKind::Picture},
    {"ZUK_Read.txt", MemberKind::Text},
    {"RLineDef.txt", MemberKind::Text},
    {"16x16_??.fnt", MemberKind::Font},
    {"Logo_??.jpg", MemberKind::Picture},
    {"Logo_??.txt", MemberKind::Text},
    {"glass_??.jpg", MemberKind::Picture},
    {"ani_??.jpg", MemberKind::Picture},
    {"ani_??_msk.jpg", MemberKind::Picture},
    {"HAPPY.mod", MemberKind::Sound},
    {"back_??.jpg", MemberKind::Picture},
}};

// Members that the program itself reads and writes by name.
inline const QString cfgMemberName = QStringLiteral("gfxboot.cfg");
inline const QString mainFontName = QStringLiteral("16x16.fnt");
inline const QString mainBackName = QStringLiteral("back.jpg");
inline const QString backPattern = QStringLiteral("back_??.jpg");
// The first logo; its size is the size of all others.
inline const QString logoMaskName = QStringLiteral("Logo_msk.jpg");
inline const QString logoPattern = QStringLiteral("Logo_??.jpg");

// Path of the background with this number: "back_NN.jpg", or "back.jpg" if there is no such file.
// `folder` ends in "/".
QString backgroundFile(const QString& folder, qint64 number);

// The kind by pattern; a name outside the catalogue by its ending.
MemberKind memberKind(const QString& name);

// Where a member stands among the patterns, and behind all of them if none fits.
std::size_t memberPlace(const QString& name);

// True for the four names that must stay; compared with case.
bool IsRequiredMember(const QString& name);

// A member's name as its bytes stand in the archive and on disk, and as people read it: UTF-8 where
// the bytes are valid UTF-8, else code page 1251.
struct MemberName {
    QByteArray bytes;
    QString text;
};
// Both forms of a raw name; every byte string has a text.
MemberName memberName(const QByteArray& bytes);

// The lines of a "#.lst" text, in order; line ends may be CR LF or LF, empty lines are skipped.
std::vector<MemberName> memberNames(const QByteArray& list);

// Size of the file with exactly these bytes as name, or -1 if there is none. `folder` ends in "/".
qint64 memberSize(const QString& folder, const QByteArray& name);

} // namespace fennel
