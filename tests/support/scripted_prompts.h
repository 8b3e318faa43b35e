// SPDX-License-Identifier: MIT
// The user of a test: answers from a queue, remembers every message, and fails the test on a prompt
// that nobody expected.
#pragma once

#include "base/prompts.h"

#include <QStringList>

#include <deque>
#include <functional>

namespace fennel::test {

class ScriptedPrompts : public Prompts {
public:
    using Prompts::ShowMessage;
    ~ScriptedPrompts() override; // fails the test if an expected prompt never came

    // The next message box must hold `part` and gets `answer`.
    void expectMessage(const QString& part, Answer answer = Answer::Ok)
    {
        m_queue.push_back({Expected::Message, part, answer});
    }
    // The next choice must have `part` in its text or list and gets the answer of that caption.
    void expectChoice(const QString& part, const QString& answer)
    {
        m_queue.push_back({Expected::Choose, part, Answer::Ok, true, {}, answer});
    }
    // The next dialog of that kind; an empty path is Cancel.
    void expectOpen(const QString& path) { m_queue.push_back({Expected::Open, path}); }
    void expectSave(const QString& path) { m_queue.push_back({Expected::Save, path}); }
    void expectFolder(const QString& path) { m_queue.push_back({Expected::Folder, path}); }
    void expectInput(const std::optional<QString>& text)
    {
        m_queue.push_back(
            {Expected::Input, text.value_or(QString()), Answer::Ok, text.has_value()});
    }
    void expectColour(const std::optional<QColor>& colour)
    {
        m_queue.push_back(
            {Expected::Colour, {}, Answer::Ok, colour.has_value(), colour.value_or(QColor())});
    }

    // What was expected and did not come is expected no longer.
    void forget() { m_queue.clear(); }
    // If set, it answers the messages that nobody expected; choices get their usual answer, and
    // other such prompts are cancelled.
    std::function<Answer(const QString& text, MessageType type)> answerRest;

    // Everything that was asked or told so far, oldest first.
    QStringList texts;
    QStringList titles;
    std::vector<MessageType> types;
    std::vector<FileQuestion> fileQuestions;
    std::optional<QString> lastInitialInput;

    Answer ShowMessage(const QString& text, MessageType type, const QString& title) override;
    QString openFile(const FileQuestion& question) override;
    QString saveFile(const FileQuestion& question) override;
    QString ChooseFolder(const QString& title) override;
    std::optional<QString> input(const QString& prompt, const QString& title,
                                 const QString& initial) override;
    std::optional<QColor> ChooseColour(const QColor& initial) override;
    int choose(const Choice& choice) override;

private:
    struct Expected {
        enum Kind { Message, Open, Save, Folder, Input, Colour, Choose } kind = Message;
        QString text = {};
        Answer answer = Answer::Ok;
        bool given = true;
        QColor colour = {};
        QString caption = {};
    };
    // The expected prompt of that kind; without one the test fails and the user cancels.
    Expected take(Expected::Kind kind, const QString& shown);
    std::deque<Expected> m_queue;
};

} // namespace fennel::test
