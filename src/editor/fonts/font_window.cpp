// SPDX-License-Identifier: MIT
#include "editor/fonts/font_window.h"

#include "base/failure_words.h"
#include "base/words.h"
#include "editor/window/retranslated.h"
#include "fonts/font_substitution.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int cellPixels = 15; // letters in the cells
constexpr int scrollBarRoom = 28;
constexpr int frameRoom = 40; // of the window system, around a dialog
constexpr int usualSpace = 4; // boot-screen pixels

QString pathOf(const std::vector<InstalledFont>& fonts, const FontFile& font)
{
    for (const InstalledFont& one : fonts) {
        if (one.fullName() == font.name && one.path.endsWith(u'/' + font.fileName))
            return one.path;
    }
    return {};
}

} // namespace

FontWindow::FontWindow(const Shell& shell, const FontDialogStart& start, CharSelected& set,
                       const QString& defaultFontName, QWidget* parent)
    : QDialog(parent), m_shell(shell), m_set(set), m_defaultFontName(defaultFontName),
      m_logPixelsY(start.logPixelsY), m_installed(installedFonts()),
      m_fonts(fontFiles(fontListText(m_installed))),
      m_views(new FontViews(start.title, shell.run.PreviewScale, set, this)),
      m_page(new CharPage(set, this))
{
    setObjectName(u"frmFonts"_s);
    setWindowTitle(start.title);
    // The editor waits, and the guide can be read meanwhile.
    setWindowModality(Qt::WindowModal);
    connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
            &FontWindow::helpWanted);
    auto* top = new QHBoxLayout;
    top->addWidget(m_views, 3);
    top->addWidget(makeFontFrame(start.mostPoints), 2);
    auto* tall = new QWidget;
    auto* column = new QVBoxLayout(tall);
    column->addLayout(top, 1);
    column->addLayout(makeSpacings());
    column->addWidget(m_page);
    addScrolling(*tall);
    m_list->setCurrentIndex(placeOfFont(m_fonts, start.FontStyleName, naturalSans()));
    connectParts();
    chooseFont(m_list->currentIndex());
    m_size->setValue(start.wholeSize);
    m_views->setSize(m_size->value());
    m_space->setValue(usualSpace);
    m_list->setFocus();
    QSize wanted = tall->sizeHint() + QSize(0, layout()->minimumSize().height());
    const QSize room = screen()->availableSize() - QSize(frameRoom, frameRoom);
    if (wanted.height() > room.height()) // the bar that comes then shall cover nothing
        wanted.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    resize(wanted.boundedTo(room));
}

// On a small screen the upper part scrolls; the buttons stay in sight.
void FontWindow::addScrolling(QWidget& upper)
{
    auto* view = new QScrollArea(this);
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->setWidgetResizable(true);
    view->setWidget(&upper);
    const QMargins edges = upper.layout()->contentsMargins();
    QLayout* end = makeEnd();
    end->setContentsMargins(edges.left(), 0, edges.right(), edges.bottom());
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins({});
    all->addWidget(view, 1);
    all->addLayout(end);
}

QCheckBox* FontWindow::addIndicator(const QString& name, const QString& caption)
{
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(name);
    box->setTristate(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setToolTip(Words::tr("Told by the name of the font; choose another one to change it"));
    // It tells and cannot be set.
    connect(box, &QCheckBox::clicked, this, &FontWindow::showStyles);
    return box;
}

QGroupBox* FontWindow::makeFontFrame(int mostPoints)
{
    auto* frame = new QGroupBox(Words::tr("Windows ttf-file INFO"), this);
    frame->setObjectName(u"Frame1"_s);
    m_list = new QComboBox(frame);
    m_list->setObjectName(u"Combo1"_s);
    sayName(m_list, Words::mark("Font"));
    m_list->setStyleSheet(u"QComboBox { combobox-popup: 0; }"_s);
    m_list->setMaxVisibleItems(20);
    m_list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_list->setMinimumContentsLength(30);
    for (const FontFile& font : m_fonts)
        m_list->addItem(font.rowText());
    m_list->view()->setMinimumWidth(m_list->view()->sizeHintForColumn(0) + scrollBarRoom);
    m_bold = addIndicator(u"CheckBold"_s, Words::tr("Bold"));
    m_italic = addIndicator(u"CheckItalic"_s, Words::tr("Italic"));
    m_size = new NumberSpin(u"UpDown1"_s, u"Text2"_s, NumberRange{1, double(mostPoints), 0}, frame);
    auto* sizeLabel = new QLabel(Words::tr("Win Font Size"), frame);
    sizeLabel->setBuddy(m_size);
    m_size->setSuffix(Words::tr(" pt"));
    m_pixels = new QLabel(frame);
    m_pixels->setObjectName(u"LabelPixels"_s);
    m_note = new QLabel(frame);
    m_note->setObjectName(u"LabelNote"_s);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(m_bold);
    row->addWidget(m_italic);
    row->addStretch(1);
    row->addWidget(sizeLabel);
    row->addWidget(m_size);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(m_list);
    column->addLayout(row);
    column->addWidget(m_pixels, 0, Qt::AlignRight);
    column->addWidget(m_note, 1);
    return frame;
}

QLayout* FontWindow::makeSpacings()
{
    m_space = new SpacingFrame(u"Frame3"_s, Words::tr("Space Width"), u"space_width"_s,
                               {{u"Label3"_s, Words::tr("Two"), {}, false},
                                {u"words"_s, Words::tr("words"), {1, 0}, false}},
                               this);
    m_line = new SpacingFrame(u"Frame2"_s, Words::tr("Line Space"), u"line_space"_s,
                              {{u"Label2"_s, Words::tr("This is a sample of a"), {}, false},
                               {u"multi_line"_s, Words::tr("multi-line text"), {0, 1}, true}},
                              this);
    std::vector<SpacingFrame::Word> letters;
    for (const QChar letter : Words::tr("font")) {
        const int place = static_cast<int>(letters.size());
        letters.push_back({u"Label4_%1"_s.arg(place), QString(letter), {place, 0}, false});
    }
    m_letter =
        new SpacingFrame(u"Frame4"_s, Words::tr("Letter Space"), u"letter_space"_s, letters, this);
    auto* row = new QHBoxLayout;
    for (SpacingFrame* frame : {m_space, m_line, m_letter})
        row->addWidget(frame);
    return row;
}

QLayout* FontWindow::makeEnd()
{
    m_count = new QLabel(this);
    m_count->setObjectName(u"LabelCount"_s);
    m_count->setTextFormat(Qt::PlainText);
    m_ranges = new QPlainTextEdit(this);
    m_ranges->setObjectName(u"LabelFNTSet"_s);
    sayName(m_ranges, Words::mark("Chosen ranges"));
    m_ranges->setReadOnly(true);
    m_ranges->setFocusPolicy(Qt::ClickFocus);
    m_ranges->setFixedHeight(3 * fontMetrics().height());
    auto* apply = new QPushButton(Words::tr("Apply"), this);
    apply->setObjectName(u"butОК"_s);
    apply->setDefault(true);
    auto* cancel = new QPushButton(Words::tr("Cancel"), this);
    cancel->setObjectName(u"butCancel"_s);
    cancel->setAutoDefault(false);
    connect(apply, &QPushButton::clicked, this, &FontWindow::apply);
    connect(cancel, &QPushButton::clicked, this, &FontWindow::reject);
    auto* set = new QVBoxLayout;
    set->addLayout(makeTyping());
    set->addWidget(m_count);
    set->addWidget(m_ranges);
    auto* row = new QHBoxLayout;
    row->addLayout(set, 1);
    row->addWidget(apply, 0, Qt::AlignBottom);
    row->addWidget(cancel, 0, Qt::AlignBottom);
    return row;
}

QLayout* FontWindow::makeTyping()
{
    m_typed = new QLineEdit(this);
    m_typed->setObjectName(u"TextTyped"_s);
    sayName(m_typed, Words::mark("Letters or codes, such as 0x41-0x5A or a-z"));
    m_typed->setPlaceholderText(Words::tr("Letters or codes, such as 0x41-0x5A or a-z"));
    m_typed->setClearButtonEnabled(true);
    m_typed->installEventFilter(this);
    auto* row = new QHBoxLayout;
    row->addWidget(m_typed, 1);
    for (const bool add : {true, false}) {
        auto* button = new QPushButton(add ? Words::tr("Add") : Words::tr("Remove"), this);
        button->setObjectName(add ? QStringLiteral("butAddTyped")
                                  : QStringLiteral("butRemoveTyped"));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, add] { takeTyped(add); });
        row->addWidget(button);
    }
    return row;
}

// What cannot be taken away by a click cannot be so by typing either.
void FontWindow::takeTyped(bool add)
{
    const Result<CharSelected> typed = typedCharacters(m_typed->text());
    if (!typed) {
        m_shell.prompts.ShowMessage(QString::fromStdString(typed.failure().text));
        return;
    }
    CharSelected kept = m_set;
    for (std::size_t code = lastFixedCharacter + 1; code < kept.size(); ++code)
        kept[code] = kept[code] && !(*typed)[code];
    setRanges(add ? m_set | *typed : kept);
    m_typed->selectAll();
}

void FontWindow::markRun(int first, int last, bool chosen)
{
    for (int code = std::max(first, lastFixedCharacter + 1); code <= last; ++code)
        m_set[static_cast<std::size_t>(code)] = chosen;
    m_page->setChanged();
    showSet();
}

// The samples of the spacings, in the size that the boot screen shows.
void FontWindow::showPixels()
{
    const int pixels = fontPixels(m_size->value(), m_logPixelsY);
    m_pixels->setText(Words::tr("= %1 pixels on the screen").arg(pixels));
    QFont face = m_shown;
    face.setPixelSize(std::max(1, pixels));
    for (SpacingFrame* frame : {m_space, m_line, m_letter})
        frame->setFace(face);
}

void FontWindow::connectParts()
{
    connect(m_page, &CharPage::runMarked, this, &FontWindow::markRun);
    // At boot the blank is as wide as the two say together.
    connect(m_letter->number(), &QDoubleSpinBox::valueChanged, this,
            [this] { m_space->setExtra(m_letter->value()); });
    connect(m_size, &QDoubleSpinBox::valueChanged, this, &FontWindow::showPixels);
    connect(m_list, &QComboBox::currentIndexChanged, this, &FontWindow::chooseFont);
    connect(m_size, &QDoubleSpinBox::valueChanged, m_views, &FontViews::setSize);
    connect(m_size, &QDoubleSpinBox::valueChanged, this, &FontWindow::showSet);
    connect(m_letter->number(), &QDoubleSpinBox::valueChanged, this, &FontWindow::showSet);
    connect(m_views, &FontViews::loadFromMember, this, &FontWindow::loadFromMember);
    connect(m_views, &FontViews::loadDefault, this,
            [this] { setRanges(ParseCharacterRanges(rangesOfDefault(m_defaultFontName))); });
    connect(m_page, &CharPage::pageChanged, m_views, &FontViews::setPage);
    connect(m_page, &CharPage::cellPressed, this, &FontWindow::press);
    // Enter is Apply in the texts too, which would take it as a new line.
    const auto texts = findChildren<QPlainTextEdit*>();
    for (QPlainTextEdit* text : texts)
        text->installEventFilter(this);
}

bool FontWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (watched == m_typed)
                takeTyped(true);
            else
                apply();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void FontWindow::chooseFont(int place)
{
    if (place < 0 || place >= static_cast<int>(m_fonts.size())) {
        m_note->setText(Words::tr("No TrueType font is installed on this system."));
        showSet();
        return;
    }
    const FontFile& font = m_fonts[static_cast<std::size_t>(place)];
    m_family = familyOfName(font.name, QFontDatabase::families());
    m_note->setText(
        m_family.isEmpty()
            ? Words::tr("%1 cannot be shown here, so the examples stand in another font. The "
                        "boot screen's font is made from its file all the same.")
                  .arg(font.name)
            : QString());
    m_views->setExample(fontExampleText(font));
    showStyles();
    loadFace(font);
    showSet();
}

void FontWindow::loadFace(const FontFile& font)
{
    QFont shown;
    setFace(shown, {m_family, {}, extraStyle(font, m_family)}, font.bold(), font.italic());
    m_views->setFace(shown);
    m_shown = shown;
    showPixels();
    shown.setPixelSize(cellPixels);
    // The file itself, if it is found: a family may have other files of the same name.
    const QString path = pathOf(m_installed, font);
    QRawFont face(path, cellPixels);
    if (path.isEmpty() || !face.isValid())
        face = QRawFont::fromFont(shown);
    m_there = charactersOf(face);
    m_face = face;
    m_page->setFace(face, shown, m_there);
}

void FontWindow::showStyles()
{
    const int place = m_list->currentIndex();
    const FontFile font = place >= 0 ? m_fonts[static_cast<std::size_t>(place)] : FontFile();
    m_bold->setCheckState(font.bold() ? Qt::PartiallyChecked : Qt::Unchecked);
    m_italic->setCheckState(font.italic() ? Qt::PartiallyChecked : Qt::Unchecked);
}

void FontWindow::setRanges(const Result<CharSelected>& set)
{
    if (!set) {
        m_shell.prompts.ShowMessage(failureWords(set.failure()));
        return;
    }
    m_set = *set;
    m_page->setChanged();
    showSet();
}

void FontWindow::loadFromMember(const QString& member)
{
    const Result<QByteArray> file = readBytes(m_shell.run.Workspace + member);
    if (!file) {
        m_shell.prompts.ShowMessage(failureWords(file.failure()));
        return;
    }
    setRanges(ParseCharacterRanges(rangesOfFont(*file)));
}

void FontWindow::press(int code)
{
    (void)toggleCharacter(m_set, code);
    showSet();
}

void FontWindow::showSet()
{
    m_ranges->setPlainText(inLines(FormatCharacterRanges(m_set), u','));
    m_views->setChanged();
    CharSelected wanted = m_set;
    wanted[0] = false; // never goes into a font
    const auto all = static_cast<int>(wanted.count());
    const auto missing = static_cast<int>((wanted & ~m_there).count());
    QString text = Words::tr("%1 characters selected").arg(all);
    if (missing > 0)
        text += Words::tr(", %1 of them not in this font: they are left out").arg(missing);
    wanted &= m_there;
    const auto wide = static_cast<int>(m_face.isValid() ? tooWide(wanted).count() : 0);
    if (wide > 0)
        text +=
            Words::tr(", %1 too wide for a font file at this size: they are left out").arg(wide);
    if (all > 0 && !hasLatin(wanted))
        text += Words::tr(". There are no Latin letters");
    m_count->setText(text);
}

// In the size that the font is made in. The tool rounds to whole pixels a little differently.
CharSelected FontWindow::tooWide(const CharSelected& wanted) const
{
    QRawFont face = m_face;
    face.setPixelSize(fontPixels(m_size->value(), m_logPixelsY));
    return charactersBeyond(face, wanted, m_letter->value());
}

void FontWindow::apply()
{
    m_views->showView(WindowsView);
    accept();
}

FontChoice FontWindow::choice() const
{
    FontChoice choice;
    if (const int place = m_list->currentIndex(); place >= 0) {
        const FontFile& font = m_fonts[static_cast<std::size_t>(place)];
        choice.family = tagFamily(font, m_family);
        choice.bold = font.bold();
        choice.italic = font.italic();
        const QString path = pathOf(m_installed, font);
        choice.fileName = path.isEmpty() ? font.fileName : nameForTool(path, installedFontFiles());
    }
    choice.size = m_size->value();
    choice.FontSpaceWidth = m_space->value();
    choice.FontLineSpace = m_line->value();
    choice.FontLetterSpace = m_letter->value();
    return choice;
}

} // namespace fennel
