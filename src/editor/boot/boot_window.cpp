// SPDX-License-Identifier: MIT
#include "editor/boot/boot_window.h"

#include "base/words.h"
#include "editor/window/retranslated.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb markColour = qRgba(255, 0, 128, 255);

struct KeyButton {
    const char16_t* caption;
    const char16_t* key; // QEMU's name
    const char* tip;     // see Words
};
constexpr KeyButton keyButtons[] = {
    {u"◀", u"left", Words::mark("Left")},
    {u"▲", u"up", Words::mark("Up")},
    {u"▼", u"down", Words::mark("Down")},
    {u"▶", u"right", Words::mark("Right")},
    {u"Enter", u"ret", Words::mark("Enter")},
    {u"Esc", u"esc", Words::mark("Escape")},
    {u"F1", u"f1", "F1"},
    {u"F2", u"f2", "F2"},
};

} // namespace

BootWindow::BootWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), m_compare(new BootCompare(this)), m_keys(makeKeys()),
      m_words(new QLabel(this)), m_share(new QLabel(this)), m_mark(new QCheckBox(this))
{
    setObjectName(u"BootWindow"_s);
    retranslated(this, [this] {
        setWindowTitle(
            Words::tr("Boot test: preview at the left of the line, booted screen at the right"));
        showDifference();
    });
    sayText(m_mark, Words::mark("Mark differences"));
    m_words->setObjectName(u"BootWords"_s);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_share->setObjectName(u"BootDifference"_s);
    m_mark->setObjectName(u"BootMarks"_s);
    m_mark->setFocusPolicy(Qt::NoFocus);
    auto* told = new QHBoxLayout;
    told->addWidget(m_words, 1);
    told->addWidget(m_share);
    told->addWidget(m_mark);
    auto* pressed = new QHBoxLayout;
    pressed->addWidget(m_keys);
    pressed->addStretch(1);
    pressed->addWidget(makeButtons());
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_compare, 1);
    column->addLayout(told);
    column->addLayout(pressed);
    m_compare->setSplit(0.5);
    connect(m_compare, &BootCompare::keyPressed, this, &BootWindow::keyPressed);
    connect(m_mark, &QCheckBox::toggled, this, &BootWindow::showDifference);
    enable(false, false, false);
}

QWidget* BootWindow::makeKeys()
{
    auto* keys = new QWidget(this);
    auto* row = new QHBoxLayout(keys);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const KeyButton& key : keyButtons) {
        auto* button = new QToolButton(keys);
        const QString name = QString::fromUtf16(key.key);
        button->setObjectName(u"BootKey_"_s + name);
        button->setText(QString::fromUtf16(key.caption));
        retranslated(button, [button, tip = key.tip] {
            const QString says = Words::tr("%1 goes to the booted menu").arg(Words::tr(tip));
            button->setToolTip(says);
            button->setAccessibleName(says);
        });
        button->setFocusPolicy(Qt::NoFocus); // the keyboard stays with the guest
        connect(button, &QToolButton::clicked, this, [this, name] { Q_EMIT keyPressed(name); });
        row->addWidget(button);
    }
    return keys;
}

QWidget* BootWindow::makeButtons()
{
    auto* buttons = new QWidget(this);
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString& name, const char* caption, const char* tip) {
        auto* button = new QPushButton(buttons);
        sayText(button, caption);
        button->setObjectName(name);
        retranslated(button, [button, tip] { button->setToolTip(Words::tr(tip)); });
        button->setFocusPolicy(Qt::NoFocus);
        row->addWidget(button);
        return button;
    };
    m_again = add(u"BootAgain"_s, Words::mark("Boot again"),
                  Words::mark("Boots what is on the stage now"));
    m_watch = add(u"BootWatch"_s, Words::mark("Watch"),
                  Words::mark("Opens the running guest in QEMU's window"));
    m_cancel = add(u"BootCancel"_s, Words::mark("Cancel"), Words::mark("Ends the guest"));
    connect(m_again, &QPushButton::clicked, this, &BootWindow::againWanted);
    connect(m_watch, &QPushButton::clicked, this, &BootWindow::watchWanted);
    connect(m_cancel, &QPushButton::clicked, this, &QWidget::close);
    return buttons;
}

void BootWindow::showPreview(const QImage& picture)
{
    m_preview = picture;
    m_compare->setPreview(picture);
}

void BootWindow::showBooted(const QImage& picture, bool stands)
{
    m_stands = stands;
    m_booted = picture;
    m_compare->setBooted(picture);
    showDifference();
}

void BootWindow::showWords(const QString& words, bool fault)
{
    m_words->setText(words);
    QPalette colours = palette();
    if (fault)
        colours.setColor(QPalette::WindowText, colours.color(QPalette::Window).lightness() > 127
                                                   ? QColor(0xB0, 0x18, 0x18)
                                                   : QColor(0xFF, 0x90, 0x90));
    m_words->setPalette(colours);
}

void BootWindow::showDifference()
{
    const bool both = m_stands && !m_preview.isNull() && !m_booted.isNull();
    m_mark->setEnabled(both);
    if (!both) {
        m_share->clear();
        m_compare->setMarks({});
        return;
    }
    const PictureDifference difference = differenceOf(m_preview, m_booted, markColour);
    m_share->setText(Words::tr("%1 % of the pixels differ").arg(difference.share * 100, 0, 'f', 2));
    m_compare->setMarks(m_mark->isChecked() ? difference.marks : QImage());
}

void BootWindow::enable(bool awake, bool watchable, bool running)
{
    m_keys->setEnabled(awake);
    m_watch->setEnabled(watchable);
    m_cancel->setText(running ? Words::tr("Cancel") : Words::tr("Close"));
}

void BootWindow::fitToPictures()
{
    const QSize desktop = screen()->availableGeometry().size() - QSize(40, 60);
    resize(sizeHint().boundedTo(desktop));
    if (const QWidget* owner = parentWidget())
        move(owner->frameGeometry().center() - rect().center());
    m_compare->setFocus();
}

void BootWindow::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    Q_EMIT closed();
}

} // namespace fennel
