// SPDX-License-Identifier: MIT
#include "editor/colour/colour_tools.h"

#include "base/text.h"
#include "base/words.h"
#include "editor/window/retranslated.h"
#include "params/swatch.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 4;
constexpr int lowHeight = 104; // below it the boxes stand beside the sliders
constexpr int fullPart = 255;
constexpr int pageStep = 16;
// What may be typed.
const QString decimalPart = u"[0-9]{1,3}"_s;
const QString hexPart = QStringLiteral("[0-9A-Fa-f]{1,2}");
const QString wholeColour = QStringLiteral("(0[xX])?[0-9A-Fa-f]{1,6}");
const std::array<QString, 3> partColours = {u"#d03030"_s, u"#2e9e3f"_s, u"#3060d0"_s};

constexpr std::array<const char*, 3> partNames = {Words::mark("Red"), Words::mark("Green"),
                                                  Words::mark("Blue")};

void setName(QWidget* widget, const QString& name, const char* toolTip)
{
    widget->setObjectName(name);
    sayTip(widget, toolTip);
}

QLineEdit* numberBox(QWidget* parent, int characters, const QString& allowed)
{
    auto* box = new QLineEdit(parent);
    box->setValidator(new QRegularExpressionValidator(QRegularExpression(allowed), box));
    box->setAlignment(Qt::AlignCenter);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QString(characters, u'0')) + 14);
    return box;
}

} // namespace

ColourTools::ColourTools(QWidget* parent)
    : QGroupBox(parent), m_label(new QLabel(this)),
      m_transparency(new QSlider(Qt::Horizontal, this)),
      m_transpText(numberBox(this, 3, decimalPart)), m_file(new QPushButton(u"↺"_s, this)),
      m_sample(new QLineEdit(this)), m_pipette(new QCheckBox(this)),
      m_ask(new QPushButton(u"..."_s, this)), m_parts(new QGridLayout)
{
    setObjectName(u"Frame5RDPanelTools"_s);
    buildTransparency();
    buildFill();

    auto* top = new QHBoxLayout;
    top->addWidget(m_label);
    top->addWidget(m_transparency, 1);
    top->addWidget(m_transpText);
    top->addWidget(m_file);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_pipette, 1);
    buttons->addWidget(m_ask);
    auto* left = new QVBoxLayout;
    left->addWidget(m_sample, 1);
    left->addLayout(buttons);
    auto* bottom = new QHBoxLayout;
    bottom->addLayout(left, 1);
    bottom->addLayout(m_parts, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addLayout(top);
    column->addLayout(bottom, 1);
    layOut(true);
    m_least = minimumSizeHint();
    layOut(false);
    showNothing();
}

void ColourTools::buildTransparency()
{
    m_label->setObjectName(u"Label_Transp"_s);
    retranslated(m_label, [this] { m_label->setText(Words::tr("Transparency")); });
    setName(m_transparency, u"Transparency"_s,
            Words::mark("0 shows the fill, 255 only the background"));
    m_transparency->setRange(0, fullPart);
    m_transparency->setPageStep(pageStep);
    m_transpText->setObjectName(u"Text_Transp"_s);
    sayName(m_transpText, Words::mark("Transparency"));
    connect(m_transpText, &QLineEdit::editingFinished, this,
            [this] { takeTyped(*m_transpText, *m_transparency, 10); });
    setName(m_file, u"Command1"_s,
            Words::mark("Fill and transparency as the file had them when it was opened"));
    m_file->setFixedWidth(28);
    connect(m_transparency, &QSlider::sliderPressed, this, &ColourTools::newJourney);
    connect(m_transparency, &QSlider::valueChanged, this, [this](int value) {
        m_transpText->setText(QString::number(value));
        if (!m_silent)
            Q_EMIT transparencyChanged(value);
    });
}

void ColourTools::buildFill()
{
    setName(m_sample, u"TextColor"_s, Words::mark("The fill of the selected object"));
    m_sample->setValidator(
        new QRegularExpressionValidator(QRegularExpression(wholeColour), m_sample));
    connect(m_sample, &QLineEdit::editingFinished, this, &ColourTools::takeColour);
    m_sample->setAlignment(Qt::AlignCenter);
    m_sample->setMinimumSize(48, fontMetrics().height());
    m_sample->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    sayText(m_pipette, Words::mark("Pick"));
    setName(m_pipette, u"Check1Pipetka"_s,
            Words::mark("Pick the fill from the screen; Esc cancels"));
    setName(m_ask, u"ComRGB"_s, Words::mark("Choose the fill"));
    m_ask->setFixedWidth(28);
    for (int i = 0; i < 3; ++i) {
        const auto part = static_cast<std::size_t>(i);
        // As a scroll bar: 0 at the top, so that the Down key moves knob and value alike.
        m_sliders[part] = new QSlider(Qt::Vertical, this);
        m_sliders[part]->setObjectName(u"VScrollRGB(%1)"_s.arg(i));
        m_sliders[part]->setRange(0, fullPart);
        m_sliders[part]->setPageStep(pageStep);
        m_sliders[part]->setInvertedAppearance(true);
        m_sliders[part]->setInvertedControls(true);
        m_sliders[part]->setMinimumHeight(18);
        sayName(m_sliders[part], partNames[part]);
        sayName(m_sliders[part], partNames[part]);
        m_boxes[part] = numberBox(this, 2, hexPart);
        connect(m_boxes[part], &QLineEdit::editingFinished, this,
                [this, part] { takeTyped(*m_boxes[part], *m_sliders[part], 16); });
        m_boxes[part]->setObjectName(u"TextRGB(%1)"_s.arg(i));
        m_boxes[part]->setStyleSheet(u"color: %1; font-weight: bold;"_s.arg(
            QColor(textOnGround(QColor(partColours[part]).rgb(),
                                palette().color(QPalette::Base).rgb()))
                .name()));
        sayName(m_boxes[part], partNames[part]);
        m_boxes[part]->installEventFilter(this);
        connect(m_sliders[part], &QSlider::valueChanged, this, &ColourTools::partMoved);
        connect(m_sliders[part], &QSlider::sliderPressed, this, &ColourTools::newJourney);
    }
}

void ColourTools::layOut(bool low)
{
    m_low = low;
    m_parts->setSpacing(low ? 2 : margin);
    for (int i = 0; i < 3; ++i) {
        const auto part = static_cast<std::size_t>(i);
        m_parts->removeWidget(m_sliders[part]);
        m_parts->removeWidget(m_boxes[part]);
        m_parts->addWidget(m_sliders[part], 0, low ? 2 * i : i, Qt::AlignHCenter);
        m_parts->addWidget(m_boxes[part], low ? 0 : 1, low ? 2 * i + 1 : i, Qt::AlignCenter);
    }
}

void ColourTools::resizeEvent(QResizeEvent* event)
{
    QGroupBox::resizeEvent(event);
    if (const bool low = height() < lowHeight; low != m_low)
        layOut(low);
}

void ColourTools::showValues(ColourControls enabled, QRgb fill, int transp)
{
    const QScopedValueRollback<bool> silent(m_silent, true);
    const std::array<int, 3> parts = colourParts(fill);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        m_sliders[i]->setValue(parts[i]);
        m_sliders[i]->setEnabled(enabled.fill);
        m_boxes[i]->setText(partText(parts[i]));
        m_boxes[i]->setEnabled(enabled.fill);
    }
    showSample(fill);
    m_sample->setReadOnly(!enabled.fill);
    m_pipette->setEnabled(enabled.fill);
    m_ask->setEnabled(enabled.fill);
    m_transparency->setValue(transparencyShown(transp));
    m_transpText->setText(QString::number(m_transparency->value()));
    for (QWidget* widget : std::initializer_list<QWidget*>{m_label, m_transparency, m_transpText})
        widget->setEnabled(enabled.transparency);
    m_file->setEnabled(enabled.fill || enabled.transparency);
}

void ColourTools::showNothing()
{
    showValues({}, qRgb(0, 0, 0), 0);
    m_sample->setPalette(palette());
    m_sample->clear();
}

void ColourTools::showSample(QRgb colour)
{
    QPalette colours = m_sample->palette();
    colours.setColor(QPalette::Base, QColor(colour));
    colours.setColor(QPalette::Text, QColor(textColourOn(colour)));
    m_sample->setPalette(colours);
    m_sample->setText(hexText(colour & 0xFFFFFFU));
}

QRgb ColourTools::sliderColour() const
{
    return colourOfParts({m_sliders[0]->value(), m_sliders[1]->value(), m_sliders[2]->value()});
}

void ColourTools::partMoved()
{
    if (m_silent)
        return;
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        m_boxes[i]->setText(partText(m_sliders[i]->value()));
    showSample(sliderColour());
    Q_EMIT fillChanged(sliderColour());
}

// Only when it is typed to its end: the text is written anew for every value.
void ColourTools::takeTyped(QLineEdit& box, QSlider& slider, int base)
{
    if (!box.isModified())
        return;
    newJourney();
    slider.setValue(box.text().toInt(nullptr, base));
    box.setText(base == 16 ? partText(slider.value()) : QString::number(slider.value()));
}

void ColourTools::takeColour()
{
    if (!m_sample->isModified())
        return;
    newJourney();
    const QRgb typed = 0xff000000U | m_sample->text().toUInt(nullptr, 16);
    showSample(typed);
    Q_EMIT fillChanged(typed);
}

// Two keys of the boxes' own.
bool ColourTools::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        for (std::size_t i = 0; i < m_boxes.size(); ++i) {
            if (watched != m_boxes[i] || (key != Qt::Key_Up && key != Qt::Key_Down))
                continue;
            m_sliders[i]->setValue(partAfterKey(m_sliders[i]->value(), key));
            return true;
        }
    }
    return QGroupBox::eventFilter(watched, event);
}

} // namespace fennel
