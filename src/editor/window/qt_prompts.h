// SPDX-License-Identifier: MIT
// The real prompts: Qt's dialogs above the window that is active.
#pragma once

#include "base/prompts.h"

#include <functional>

class QWidget;

namespace fennel {

class PictureTool;

class QtPrompts : public Prompts {
public:
    using Prompts::ShowMessage;
    // Dialogs appear above `parent` (may be null before the window stands).
    void setParent(QWidget* parent) { m_parent = parent; }
    // Who reads what the dialog for pictures shows; without it there is no preview.
    void setPictures(std::function<PictureTool&()> pictures) { m_pictures = std::move(pictures); }

    Answer ShowMessage(const QString& text, MessageType type, const QString& title) override;
    QString openFile(const FileQuestion& question) override;
    QString saveFile(const FileQuestion& question) override;
    QString ChooseFolder(const QString& title) override;
    std::optional<QString> input(const QString& prompt, const QString& title,
                                 const QString& initial) override;
    std::optional<QColor> ChooseColour(const QColor& initial) override;
    int choose(const Choice& choice) override;
    void showPicture(const QString& text, const QImage& picture, const QString& caption) override;

private:
    [[nodiscard]] QWidget* parent() const;
    QWidget* m_parent = nullptr;
    std::function<PictureTool&()> m_pictures;
};

// "JPG files|*.jpg;*.jpeg|All|*|" as the text that Qt's file dialog takes. Patterns fit in any
// case.
QString qtFilter(const QString& filter);

} // namespace fennel
