// SPDX-License-Identifier: MIT
// Every question and message to the user goes through this interface. The window's own shows Qt's
// dialogs; tests answer from a queue.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>

class QImage;

namespace fennel {

// Kinds of message, by the numbers that the rest of the program uses for them.
enum class MessageType { Ok = 0, OkCancel = 1, YesNoCancel = 3, YesNo = 4, Stop = 16 };
enum class Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct FileQuestion {
    QString folder; // where the dialog starts; empty means the home folder
    QString title;
    QString filter;       // pairs "caption|patterns|", patterns separated by ";"
    QString proposedName; // for saving only
    bool picture = false; // show a preview of the chosen picture
};

// A question with answers in words of its own, and a list of what it is about.
struct Choice {
    QString text;
    QStringList list; // an item each; of any length
    QStringList answers;
    int usual = 0;  // index of the answer that Enter gives
    int cancel = 0; // index of the answer that a closed box gives
    QString title;
};

class Prompts {
public:
    virtual ~Prompts() = default;
    // Shows the text until a button is pressed; closing the box is Cancel, No or Ok, whichever the
    // type has.
    virtual Answer ShowMessage(const QString& text, MessageType type, const QString& title) = 0;
    // Both return the chosen path, or an empty string for a cancelled dialog.
    virtual QString openFile(const FileQuestion& question) = 0;
    // Has asked already whether an existing file may be replaced.
    virtual QString saveFile(const FileQuestion& question) = 0;
    // An existing folder's path, or an empty string for a cancelled dialog; an empty title has a
    // default.
    virtual QString ChooseFolder(const QString& title) = 0;
    // The typed text, or nothing if cancelled.
    virtual std::optional<QString> input(const QString& prompt, const QString& title,
                                         const QString& initial) = 0;
    // The chosen colour, or nothing if cancelled.
    virtual std::optional<QColor> ChooseColour(const QColor& initial) = 0;

    // The index of the chosen answer. Where nobody can be asked, it is the usual one.
    virtual int choose(const Choice& choice) { return choice.usual; }

    // A message without a title, of any length, beside a picture (may be null) and what is said
    // under it.
    virtual void showPicture(const QString& text, const QImage& picture, const QString& caption)
    {
        Q_UNUSED(picture)
        Q_UNUSED(caption)
        ShowMessage(text, MessageType::Ok, {});
    }

    Answer ShowMessage(const QString& text) { return ShowMessage(text, MessageType::Ok, {}); }
};

} // namespace fennel
