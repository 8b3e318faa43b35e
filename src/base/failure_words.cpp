// SPDX-License-Identifier: MIT
#include "base/failure_words.h"

#include "base/words.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace fennel {

namespace {

// In the order of FailureKind.
constexpr std::array<const char*, 9> kinds = {
    Words::mark("A file, a member or a tool is not there."),
    Words::mark("The rights for this are missing."),
    Words::mark("There is not enough room."),
    Words::mark("The file is damaged or of another format."),
    Words::mark("The file is too large."),
    Words::mark("This kind of file is not supported."),
    Words::mark("A tool did not do its work."),
    Words::mark("Canceled by user"),
    Words::mark("Reading or writing failed."),
};

// Names of files can be in any script, and say nothing of the sentence around them.
bool hasWordsIn(QChar::Script script, const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    return std::ranges::any_of(words, [script](const QString& word) {
        return !word.contains(QLatin1Char('/')) &&
               std::ranges::any_of(word, [script](QChar c) { return c.script() == script; });
    });
}

} // namespace

QString failureWords(const Failure& failure)
{
    QString sentence = Words::tr(failure.text.c_str());
    const char* const source = kinds[static_cast<std::size_t>(failure.kind)];
    const QString kind = Words::tr(source);
    if (kind == QLatin1String(source) || hasWordsIn(kind.front().script(), sentence))
        return sentence;
    return kind + QStringLiteral("\n\n") + sentence;
}

} // namespace fennel
