// SPDX-License-Identifier: MIT
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace fennel::test {

ScriptedPrompts::~ScriptedPrompts()
{
    for (const Expected& left : m_queue)
        ADD_FAILURE() << "expected prompt never came: " << left.text.toStdString();
}

void ScriptedPrompts::expectMessage(const QString& part, Answer answer)
{
    m_queue.push_back({Expected::Message, part, answer, true, {}});
}

void ScriptedPrompts::expectOpen(const QString& path)
{
    m_queue.push_back({Expected::Open, path, Answer::Ok, true, {}});
}

void ScriptedPrompts::expectSave(const QString& path)
{
    m_queue.push_back({Expected::Save, path, Answer::Ok, true, {}});
}

void ScriptedPrompts::expectFolder(const QString& path)
{
    m_queue.push_back({Expected::Folder, path, Answer::Ok, true, {}});
}

void ScriptedPrompts::expectInput(std::optional<QString> text)
{
    m_queue.push_back(
        {Expected::Input, text.value_or(QString()), Answer::Ok, text.has_value(), {}});
}

void ScriptedPrompts::expectColour(std::optional<QColor> colour)
{
    m_queue.push_back(
        {Expected::Colour, {}, Answer::Ok, colour.has_value(), colour.value_or(QColor())});
}

bool ScriptedPrompts::take(Expected::Kind kind, const QString& shown, Expected& out)
{
    if (m_queue.empty() || m_queue.front().kind != kind) {
        ADD_FAILURE() << "prompt that nobody expected: " << shown.toStdString();
        return false;
    }
    out = m_queue.front();
    m_queue.pop_front();
    return true;
}

Answer ScriptedPrompts::ShowMessage(const QString& text, MessageType type, const QString& title)
{
    texts.append(text);
    titles.append(title);
    types.push_back(type);
    Expected expected;
    if (!take(Expected::Message, title + QStringLiteral(": ") + text, expected))
        return Answer::Cancel;
    EXPECT_TRUE(text.contains(expected.text))
        << "message \"" << text.toStdString() << "\" should hold \"" << expected.text.toStdString()
        << '"';
    return expected.answer;
}

QString ScriptedPrompts::openFile(const FileQuestion& question)
{
    fileQuestions.push_back(question);
    Expected expected;
    return take(Expected::Open, question.title, expected) ? expected.text : QString();
}

QString ScriptedPrompts::saveFile(const FileQuestion& question)
{
    fileQuestions.push_back(question);
    Expected expected;
    return take(Expected::Save, question.title, expected) ? expected.text : QString();
}

QString ScriptedPrompts::ChooseFolder(const QString& title)
{
    titles.append(title);
    Expected expected;
    return take(Expected::Folder, title, expected) ? expected.text : QString();
}

std::optional<QString> ScriptedPrompts::input(const QString& prompt, const QString& title,
                                              const QString& initial)
{
    texts.append(prompt);
    titles.append(title);
    lastInitialInput = initial;
    Expected expected;
    if (!take(Expected::Input, prompt, expected) || !expected.given)
        return std::nullopt;
    return expected.text;
}

std::optional<QColor> ScriptedPrompts::colour(const QColor& initial)
{
    Q_UNUSED(initial)
    Expected expected;
    if (!take(Expected::Colour, QStringLiteral("colour"), expected) || !expected.given)
        return std::nullopt;
    return expected.colour;
}

} // namespace fennel::test
