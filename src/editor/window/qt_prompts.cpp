// SPDX-License-Identifier: MIT
#include "editor/window/qt_prompts.h"

#include "base/file_names.h"
#include "base/files.h"
#include "base/run_state.h"
#include "base/text.h"
#include "base/words.h"
#include "editor/window/picture_preview.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace fennel {

namespace {

QMessageBox::StandardButtons buttonsOf(MessageType type)
{
    switch (type) {
    case MessageType::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageType::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageType::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

// The program may be told to end below an open question, which nobody has agreed to then.
Answer answerWithoutButton(MessageType type)
{
    const QMessageBox::StandardButtons buttons = buttonsOf(type);
    if (buttons.testFlag(QMessageBox::Cancel))
        return Answer::Cancel;
    return buttons.testFlag(QMessageBox::No) ? Answer::No : Answer::Ok;
}

QMessageBox::Icon iconOf(MessageType type)
{
    switch (type) {
    case MessageType::Stop:
        return QMessageBox::Critical;
    case MessageType::Ok:
        return QMessageBox::Information;
    default:
        return QMessageBox::Question;
    }
}

// The dialog finds no file with an odd name, but one whose name looks like our form of such.
QString ownPath(const QString& path)
{
    return pathOfBytes(path.toUtf8());
}

// The folder of the last file may be on a drive that is gone.
QString startFolder(const FileQuestion& question)
{
    return FolderExists(question.folder) ? question.folder : QDir::homePath();
}

// A question under the wait cursor looks as if nobody listened.
class PlainCursor {
public:
    PlainCursor() : m_set(QGuiApplication::overrideCursor() != nullptr)
    {
        if (m_set)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainCursor()
    {
        if (m_set)
            QGuiApplication::restoreOverrideCursor();
    }
    PlainCursor(const PlainCursor&) = delete;
    PlainCursor& operator=(const PlainCursor&) = delete;

private:
    bool m_set;
};

constexpr QSize pictureDialogSize(820, 460);
constexpr QSize titleRoom(10, 40); // of its window

// With a preview, which only Qt's own dialog has room for.
QString openPicture(QWidget* parent, const FileQuestion& question, PictureTool& pictures)
{
    QFileDialog dialog(parent, question.title, startFolder(question), qtFilter(question.filter));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.resize(pictureDialogSize);
    if (parent != nullptr) // letters may be so large that it would ask for more
        dialog.setMaximumSize(parent->screen()->availableSize() - titleRoom);
    PicturePreview::addTo(dialog, pictures);
    return dialog.exec() == QDialog::Accepted ? ownPath(dialog.selectedFiles().value(0))
                                              : QString();
}

QLayout* pictureColumn(const QImage& picture, const QString& caption)
{
    auto* column = new QVBoxLayout;
    auto* shown = new QLabel;
    shown->setObjectName(QStringLiteral("MessagePicture"));
    shown->setPixmap(QPixmap::fromImage(picture));
    shown->setAlignment(Qt::AlignCenter);
    auto* words = new QLabel(caption);
    words->setTextFormat(Qt::PlainText);
    words->setAlignment(Qt::AlignCenter);
    column->addWidget(shown, 1);
    column->addWidget(words);
    return column;
}

// Of any length, with bars to see all of it.
QPlainTextEdit* readOnlyText(const QString& text, const QString& name)
{
    auto* words = new QPlainTextEdit(text);
    words->setObjectName(name);
    words->setReadOnly(true);
    words->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return words;
}

} // namespace

QString qtFilter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString caption = parts[i];
        // The dialog adds the patterns in brackets itself.
        caption = caption.left(caption.indexOf(QLatin1Char('('))).trimmed();
        QStringList patterns;
        for (QString pattern : parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            // "*.*" means every file, here also those without a dot.
            if (pattern == QLatin1String("*.*"))
                pattern = QStringLiteral("*");
            patterns.append(pattern);
            // File names from DOS media come in capitals, and patterns heed case here.
            if (pattern != pattern.toUpper())
                patterns.append(pattern.toUpper());
        }
        filters.append(caption + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
                       QLatin1Char(')'));
    }
    return filters.join(QStringLiteral(";;"));
}

QWidget* QtPrompts::parent() const
{
    // A message below an open dialog could not be reached, and the program would seem to hang.
    QWidget* active = QApplication::activeModalWidget();
    return active != nullptr ? active : m_parent;
}

Answer QtPrompts::ShowMessage(const QString& text, MessageType type, const QString& title)
{
    QMessageBox box(iconOf(type), title.isEmpty() ? programTitle() : title, text, buttonsOf(type),
                    parent());
    // Names of files and members may hold "<" and must not be read as markup.
    box.setTextFormat(Qt::PlainText);
    const PlainCursor cursor;
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    case QMessageBox::Ok:
        return Answer::Ok;
    default:
        return answerWithoutButton(type);
    }
}

QString QtPrompts::openFile(const FileQuestion& question)
{
    const PlainCursor cursor;
    if (question.picture && m_pictures)
        return openPicture(parent(), question, m_pictures());
    return ownPath(QFileDialog::getOpenFileName(parent(), question.title, startFolder(question),
                                                qtFilter(question.filter)));
}

QString QtPrompts::saveFile(const FileQuestion& question)
{
    const PlainCursor cursor;
    return ownPath(QFileDialog::getSaveFileName(
        parent(), question.title, QDir(startFolder(question)).filePath(question.proposedName),
        qtFilter(question.filter)));
}

QString QtPrompts::ChooseFolder(const QString& title)
{
    const PlainCursor cursor;
    return QFileDialog::getExistingDirectory(
        parent(), title.isEmpty() ? Words::tr("Choose folder...") : title, QDir::homePath());
}

std::optional<QString> QtPrompts::input(const QString& prompt, const QString& title,
                                        const QString& initial)
{
    const PlainCursor cursor;
    bool accepted = false;
    const QString text =
        QInputDialog::getText(parent(), title.isEmpty() ? programTitle() : title, plainTip(prompt),
                              QLineEdit::Normal, initial, &accepted);
    return accepted ? std::optional(text) : std::nullopt;
}

int QtPrompts::choose(const Choice& choice)
{
    constexpr QSize usual(640, 360);
    QDialog box(parent());
    box.setWindowTitle(choice.title.isEmpty() ? programTitle() : choice.title);
    auto* words = new QLabel(choice.text);
    words->setTextFormat(Qt::PlainText);
    QPlainTextEdit* list = readOnlyText(choice.list.join(u'\n'), QStringLiteral("ChoiceList"));
    list->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* buttons = new QDialogButtonBox;
    int answer = choice.cancel;
    for (int index = 0; index < choice.answers.size(); ++index) {
        QPushButton* button =
            buttons->addButton(choice.answers[index], QDialogButtonBox::ActionRole);
        button->setObjectName(QStringLiteral("Choice(%1)").arg(index));
        button->setDefault(index == choice.usual);
        if (index == choice.usual)
            QTimer::singleShot(0, button, [button] { button->setFocus(); });
        QObject::connect(button, &QPushButton::clicked, &box, [&box, &answer, index] {
            answer = index;
            box.accept();
        });
    }
    auto* column = new QVBoxLayout(&box);
    column->addWidget(words);
    column->addWidget(list, 1);
    column->addWidget(buttons);
    list->setVisible(!choice.list.isEmpty());
    if (!choice.list.isEmpty())
        box.resize(usual);
    const PlainCursor cursor;
    box.exec();
    return answer;
}

void QtPrompts::showPicture(const QString& text, const QImage& picture, const QString& caption)
{
    constexpr QSize usual(880, 380);
    QDialog box(parent());
    box.setWindowTitle(programTitle());
    QPlainTextEdit* words = readOnlyText(text, QStringLiteral("MessageText"));
    // Long paths and lists without blanks must not make the window wider than the screen.
    words->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    auto* row = new QHBoxLayout;
    if (!picture.isNull())
        row->addLayout(pictureColumn(picture, caption));
    row->addWidget(words, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    auto* column = new QVBoxLayout(&box);
    column->addLayout(row, 1);
    column->addWidget(buttons);
    box.resize(usual);
    // Otherwise Enter would go to the text.
    buttons->button(QDialogButtonBox::Ok)->setFocus();
    box.exec();
}

std::optional<QColor> QtPrompts::ChooseColour(const QColor& initial)
{
    const PlainCursor cursor;
    const QColor chosen = QColorDialog::getColor(initial, parent());
    return chosen.isValid() ? std::optional(chosen) : std::nullopt;
}

} // namespace fennel
