// SPDX-License-Identifier: MIT
// A Workspace with backgrounds and logos, a window that records what it is asked for, and a user
// who always chooses the same picture.
#pragma once

#include "picture_judge.h"
#include "tools/picture_host.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QRegularExpression>

namespace fennel::test {

class RecordingHost : public PictureHost {
public:
    QStringList backs;
    QStringList logos;
    QStringList calls;
    QSize logoSize;
    int waiting = 0;
    [[nodiscard]] QStringList backgroundRows() const override { return backs; }
    [[nodiscard]] QStringList logoRows() const override { return logos; }
    void refillMembers() override { calls.append(QStringLiteral("members")); }
    void refillBackgrounds() override { calls.append(QStringLiteral("backgrounds")); }
    void refillLogos() override { calls.append(QStringLiteral("logos")); }
    void ShowBackground() override { calls.append(QStringLiteral("show")); }
    void refreshPanels() override { calls.append(QStringLiteral("panels")); }
    void UpdateInterface() override { calls.append(QStringLiteral("interface")); }
    void setLogoSize(QSize size) override { logoSize = size; }
    void mnuView_fill() override { calls.append(QStringLiteral("fill")); }
    void setWaiting(bool on) override { waiting += on ? 1 : -1; }
};

// Takes every message and remembers it.
class PatientUser : public ScriptedPrompts {
public:
    using ScriptedPrompts::ShowMessage;
    QString chosen; // the answer of every file dialog
    std::optional<QString> typed;
    int answer = 0; // of every choice
    int choose(const Choice& choice) override
    {
        choices.append(choice.answers.value(answer));
        return answer;
    }
    QStringList choices;
    Answer ShowMessage(const QString& text, MessageType, const QString&) override
    {
        texts.append(text);
        return Answer::Ok;
    }
    QString openFile(const FileQuestion& question) override
    {
        fileQuestions.push_back(question);
        return chosen;
    }
    std::optional<QString> input(const QString& prompt, const QString& title,
                                 const QString& initial) override
    {
        texts.append(title + u'|' + prompt);
        lastInitialInput = initial;
        return typed;
    }
};

struct PictureWorkspace {
    TestShell t;
    PatientUser user;
    RecordingTools recorder;
    RecordingHost host;
    Shell shell{t.run, t.log, t.files, user, recorder};

    PictureWorkspace();
    // A JPEG of one colour.
    QString jpeg(const QString& path, QSize size, const char* colour);
    [[nodiscard]] QString member(const QString& name) const { return t.run.Workspace + name; }
    // Width, height and colour of a member, such as "64x48 #ff0000"; "none" if it is not there.
    [[nodiscard]] QString look(const QString& name) const;
    [[nodiscard]] QStringList listed() const;
    // Every file of the Workspace with its bytes, and the names of those beside it.
    [[nodiscard]] QMap<QString, QByteArray> everything() const;
};

} // namespace fennel::test
