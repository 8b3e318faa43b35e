// SPDX-License-Identifier: MIT
// A user who answers at once, always the same.
#pragma once

#include "base/prompts.h"

namespace fennel {

class QuietPrompts : public Prompts {
public:
    using Prompts::ShowMessage;
    QString chosen; // the path of every file dialog; empty is Cancel
    QString typed;  // into every input box
    Answer answer = Answer::Yes;

    Answer ShowMessage(const QString&, MessageType type, const QString&) override
    {
        return type == MessageType::Ok ? Answer::Ok : answer;
    }
    QString openFile(const FileQuestion&) override { return chosen; }
    QString saveFile(const FileQuestion&) override { return chosen; }
    QString ChooseFolder(const QString&) override { return chosen; }
    std::optional<QString> input(const QString&, const QString&, const QString&) override
    {
        return typed;
    }
    std::optional<QColor> ChooseColour(const QColor&) override { return {}; }
};

} // namespace fennel
