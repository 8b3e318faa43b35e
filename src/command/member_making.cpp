// SPDX-License-Identifier: MIT
#include "command/member_making.h"

#include "command/command_run.h"
#include "container/jpeg_check.h"
#include "container/member_table.h"
#include "container/picture_size.h"
#include "fonts/installed_fonts.h"
#include "params/message_values.h"
#include "tools/image_tool.h"

#include <algorithm>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

// The member that gives a new picture its size; empty: it keeps its own.
QByteArray modelOf(const MessageFile& message, const QByteArray& name)
{
    const QString shown = memberName(name).text;
    if (message.find(name) != nullptr)
        return name;
    if (fitsPattern(shown, backPattern))
        return mainBackName.toLatin1();
    return fitsPattern(shown, logoPattern) ? logoMaskName.toLatin1() : QByteArray();
}

QSize sizeOf(const QByteArray& picture)
{
    const auto head = readJpegHead({picture.constData(), static_cast<std::size_t>(picture.size())});
    return head ? QSize(head->width, head->height) : QSize();
}

Failure failureOf(const KeptPrompts& prompts, const Result<void>& done)
{
    Failure failure = done.failure();
    if (failure.text.empty())
        failure.text = prompts.told().join(u' ').toStdString();
    failure.told = false;
    return failure;
}

Result<FontChoice> chosenFace(const FontRequest& request, QStringList& near)
{
    const std::vector<InstalledFont> fonts = installedFonts();
    const auto found = std::ranges::find_if(
        fonts, [&](const InstalledFont& font) { return font.fullName() == request.face; });
    if (found == fonts.end()) {
        QStringList names;
        for (const InstalledFont& font : fonts)
            names.append(font.fullName());
        near = nearNames(names, request.face);
        return Failure{FailureKind::NotFound, "there is no such TrueType font"};
    }
    FontChoice choice;
    const FontFile file{found->fullName(), namePart(found->path)};
    choice.family = found->family;
    choice.bold = file.bold();
    choice.italic = file.italic();
    choice.size = request.size;
    choice.fileName = nameForTool(found->path, installedFontFiles());
    return choice;
}

} // namespace

Result<Session*> MemberMaking::session()
{
    if (m_session == nullptr)
        m_session = std::make_unique<Session>(m_prompts, m_appPath);
    if (const Result<void> made = m_session->made(); !made)
        return made.failure();
    return m_session.get();
}

Result<QByteArray> MemberMaking::source(const QString& path)
{
    if (const auto found = m_sources.constFind(path); found != m_sources.constEnd())
        return *found;
    Result<QByteArray> bytes = readInput(path);
    if (bytes)
        m_sources[path] = *bytes;
    return bytes;
}

// Without a size the picture keeps its own.
Result<QByteArray> MemberMaking::picture(const QByteArray& source, QSize size)
{
    const Result<Session*> session = this->session();
    if (!session)
        return session.failure();
    const Shell& shell = (*session)->shell();
    // The tool knows a picture by its bytes; a copy keeps odd names and standard input from it.
    const QString from = shell.run.WorkspaceRoot + u"~source"_s;
    const QString to = shell.run.WorkspaceRoot + u"~made.jpg"_s;
    if (const Result<void> kept = shell.files.write(from, source); !kept)
        return kept.failure();
    const Result<QSize> own = pictureSize(shell, from);
    if (!own)
        return Failure{own.failure().kind, "this is no picture that can be taken"};
    const QSize wanted = size.isValid() ? size : *own;
    const Result<void> made = ResizeJpg(shell, wanted.width(), wanted.height(), from, to);
    return made ? readBytes(to) : failureOf(m_prompts, made);
}

Result<QByteArray> MemberMaking::memberFrom(const QString& path, const MessageFile& message,
                                            const QByteArray& name)
{
    Result<QByteArray> bytes = source(path);
    if (!bytes || !name.toLower().endsWith(".jpg"))
        return bytes;
    const QByteArray model = modelOf(message, name);
    const QSize size = model.isEmpty() ? QSize() : sizeOf(message.bytesOf(model));
    const QString key = u"%1x%2 "_s.arg(size.width()).arg(size.height()) + path;
    if (const auto found = m_made.constFind(key); found != m_made.constEnd())
        return *found;
    Result<QByteArray> made = picture(*bytes, size);
    if (made)
        m_made[key] = *made;
    return made;
}

Result<QByteArray> makeFont(const QString& appPath, const FontRequest& request, QStringList& near)
{
    const Result<FontChoice> choice = chosenFace(request, near);
    if (!choice)
        return choice.failure();
    Result<CharSelected> set = startingCharacters();
    if (!request.chars.isEmpty())
        set = ParseCharacterRanges(request.chars);
    if (!set)
        return Failure{FailureKind::NotFound, set.failure().text};
    KeptPrompts prompts;
    Session session(prompts, appPath);
    if (const Result<void> made = session.made(); !made)
        return made.failure();
    RunState& run = session.shell().run;
    run.Workspace = run.WorkspaceRoot;
    const Result<void> built =
        BuildFont(session.shell(), *set, *choice, FontScanSettings().logPixelsY);
    if (built)
        return readBytes(newFontFile(session.shell()));
    const bool empty = built.failure().kind == FailureKind::NotFound;
    return empty ? Failure{FailureKind::NotFound, "no character of the set is in this font"}
                 : failureOf(prompts, built);
}

} // namespace fennel
