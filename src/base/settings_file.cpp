// SPDX-License-Identifier: MIT
#include "base/settings_file.h"

#include "base/text.h"
#include "base/words.h"

#include <QDir>
#include <QRegularExpression>

namespace fennel {

namespace {

const QString settingsFileName = QStringLiteral("FENNEL.ini");

// People edit this file by hand: case and blanks, even within a key, do not count.
QString foldedKey(const QString& text)
{
    QString key = text.trimmed().toLower();
    key.remove(QLatin1Char('\t'));
    key.remove(QLatin1Char(' '));
    return key;
}

struct Span {
    qsizetype begin = -1; // of the value, behind "="; -1: no line has the key
    qsizetype end = -1;
};

// The first line that fits wins, so an appended line never overrides one higher up.
Span valuePlace(const QString& text, const QString& key)
{
    // "|" ends a line like a line end does, so no value can hold one.
    static const QRegularExpression lineEnds(QStringLiteral("[\r\n|]"));
    const QString wanted = foldedKey(key);
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype found = text.indexOf(lineEnds, begin);
        const qsizetype end = found < 0 ? text.size() : found;
        const qsizetype equals = text.indexOf(QLatin1Char('='), begin);
        if (equals >= 0 && equals < end && foldedKey(text.mid(begin, equals - begin)) == wanted)
            return {equals + 1, end};
        begin = end + 1;
    }
    return {};
}

bool endsInLineEnd(const QByteArray& bytes)
{
    return bytes.isEmpty() || bytes.endsWith('\n') || bytes.endsWith('\r');
}

} // namespace

// A file that was spelled "Fennel.ini" elsewhere must stay the one settings file, and not get a
// second one beside it.
QString settingsFile(const QString& folder)
{
    QString usual = withSeparator(folder) + settingsFileName;
    if (FileExists(usual))
        return usual;
    const QStringList others = filesLike(folder, settingsFileName);
    return others.isEmpty() ? usual : withSeparator(folder) + others.first();
}

QString settingsFile(const RunState& run)
{
    return settingsFile(run.SettingsPath.isEmpty() ? run.AppPath : run.SettingsPath);
}

QString iniValue(const QString& text, const QString& key)
{
    const Span value = valuePlace(text, key);
    return value.begin < 0 ? QString() : text.mid(value.begin, value.end - value.begin).trimmed();
}

QString IniRead(const Shell& shell, const QString& key, const QString& file)
{
    const QString path = file.isEmpty() ? settingsFile(shell.run) : file;
    if (!FileExists(path)) {
        shell.prompts.ShowMessage(Words::tr("File not found: ") + path);
        return {};
    }
    return iniValue(FileReadAll(path).text, key);
}

Result<void> IniAppend(const Shell& shell, const QString& file, const QString& text)
{
    const bool utf8 = FileReadAll(file).TextIsUtf8;
    // encodeText() puts a mark first, which belongs at a file's beginning only.
    return shell.files.append(file, utf8 ? text.toUtf8() : encodeText(text, false));
}

Result<void> IniAppendLine(const Shell& shell, const QString& file, const QString& line)
{
    const Result<QByteArray> before = readBytes(file);
    // A last line without an end would swallow the new key.
    const bool ended = !before || endsInLineEnd(*before);
    const QString lineEnd = QStringLiteral("\r\n");
    return IniAppend(shell, file, (ended ? QString() : lineEnd) + line + lineEnd);
}

Result<void> IniWrite(const Shell& shell, const QString& key, const QString& value)
{
    const QString path = settingsFile(shell.run);
    const TextFile before = FileReadAll(path);
    const Span place = valuePlace(before.text, key);
    if (place.begin < 0)
        return IniAppendLine(shell, path, key + QLatin1Char('=') + value);
    QString text = before.text;
    text.replace(place.begin, place.end - place.begin, value);
    return shell.files.write(path, encodeText(text, before.TextIsUtf8));
}

Result<void> createSettingsFile(const Shell& shell, const QString& fontName,
                                const QString& language)
{
    // All four keys are written for the people who read the file; only the font and the language
    // are ever read back.
    const QString text = QStringLiteral("Monitoring USB connections=1\r\n"
                                        "Default Font Name=%1\r\n"
                                        "Default Character Set=0x20-0x7e, 0x0410-0x044f\r\n"
                                        "Default Language=%2\r\n")
                             .arg(fontName, language);
    // A font's name may need more than the 8-bit code page has.
    const bool utf8 = fromCp1251(toCp1251(text)) != text;
    const QString path = settingsFile(shell.run);
    Result<void> written = shell.files.write(path, encodeText(text, utf8));
    if (!written)
        // Half a file would count as existing settings at the next start, and its missing keys
        // would stay missing.
        (void)shell.files.remove(path);
    return written;
}

// The whole of the test of the user's rights: the first start could write beside the program or it
// could not.
NextStep settingsFileThere(const Shell& shell)
{
    if (shell.run.Installed || FileExists(settingsFile(shell.run)))
        return NextStep::GoOn;
    shell.prompts.ShowMessage(QStringLiteral("Is Not Admin"));
    return NextStep::EndProcess;
}

} // namespace fennel
