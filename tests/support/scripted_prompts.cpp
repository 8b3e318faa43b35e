// SPDX-License-Identifier: MIT
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace fennel::test {

ScriptedPrompts::~ScriptedPrompts()
{
    for (const Expected& left : m_queue)
        ADD_FAILURE() << "expected prompt never came: " << left.text.toStdString();
}

ScriptedPrompts::Expected ScriptedPrompts::take(Expected::Kind kind, const QString& shown)
{
    if (m_queue.empty() || m_queue.front().kind != kind) {
        if (!answerRest)
            ADD_FAILURE() << "prompt that nobody expected: " << shown.toStdString();
        return {kind, {}, Answer::Cancel, false};
    }
    Expected expected = m_queue.front();
    m_queue.pop_front();
    return expected;
}

Answer ScriptedPrompts::ShowMessage(const QString& text, MessageType type, const QString& title)
{
    texts.append(text);
    titles.append(title);
    types.push_back(type);
    const Expected expected = take(Expected::Message, title + QStringLiteral(": ") + text);
    if (!expected.given && answerRest)
        return answerRest(text, type);
    EXPECT_TRUE(text.contains(expected.text))
        << "message \"" << text.toStdString() << "\" should hold \"" << expected.text.toStdString()
        << '"';
    return expected.answer;
}

QString ScriptedPrompts::openFile(const FileQuestion& question)
{
    fileQuestions.push_back(question);
    return take(Expected::Open, question.title).text;
}

QString ScriptedPrompts::saveFile(const FileQuestion& question)
{
    fileQuestions.push_back(question);
    return take(Expected::Save, question.title).text;
}

QString ScriptedPrompts::ChooseFolder(const QString& title)
{
    titles.append(title);
    return take(Expected::Folder, title).text;
}

std::optional<QString> ScriptedPrompts::input(const QString& prompt, const QString& title,
                                              const QString& initial)
{
    texts.append(prompt);
    titles.append(title);
    lastInitialInput = initial;
    const Expected expected = take(Expected::Input, prompt);
    return expected.given ? std::optional(expected.text) : std::nullopt;
}

std::optional<QColor> ScriptedPrompts::ChooseColour(const QColor&)
{
    const Expected expected = take(Expected::Colour, QStringLiteral("colour"));
    return expected.given ? std::optional(expected.colour) : std::nullopt;
}

int ScriptedPrompts::choose(const Choice& choice)
{
    const QString shown = choice.text + QLatin1Char('\n') + choice.list.join(QLatin1Char('\n'));
    texts.append(shown);
    titles.append(choice.title);
    const Expected expected = take(Expected::Choose, shown);
    if (!expected.given)
        return answerRest ? choice.usual : choice.cancel;
    EXPECT_TRUE(shown.contains(expected.text))
        << shown.toStdString() << "\nshould hold \"" << expected.text.toStdString() << '"';
    EXPECT_TRUE(choice.answers.contains(expected.caption)) << expected.caption.toStdString();
    return static_cast<int>(choice.answers.indexOf(expected.caption));
}

} // namespace fennel::test
