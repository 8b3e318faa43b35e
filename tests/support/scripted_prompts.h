// SPDX-License-Identifier: MIT
// The user of a test: answers from a queue, remembers every message, and fails the test on a prompt
// that nobody expected.
#pragma once

#include "shell/prompts.h"

#include <QStringList>

#include <deque>
#include <functional>

namespace fennel::test {

class ScriptedPrompts : public Prompts {
public:
    using Prompts::ShowMessage;
    ~ScriptedPrompts() override; // fails the test if an expected prompt never came

    // The next message box must hold `part` and gets `answer`.
    void expectMessage(const QString& part, Answer answer = Answer::Ok);
    // The next dialog of that kind; an empty path is Cancel.
    void expectOpen(const QString& path);
    void expectSave(const QString& path);
    void expectFolder(const QString& path);
    void expectInput(std::optional<QString> text);
    void expectColour(std::optional<QColor> colour);

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
    std::optional<QColor> colour(const QColor& initial) override;

private:
    struct Expected {
        enum Kind { Message, Open, Save, Folder, Input, Colour } kind = Message;
        QString text;
        Answer answer = Answer::Ok;
        bool given = true;
        QColor colour;
    };
    bool take(Expected::Kind kind, const QString& shown, Expected& out);
    std::deque<Expected> m_queue;
};

} // namespace fennel::test
