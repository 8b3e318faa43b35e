// SPDX-License-Identifier: MIT
#include "editor/colour/colour_tools.h"

#include "base/text.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 4;
constexpr int lowHeight = 104; // below it the boxes stand beside the sliders
constexpr int fullPart = 255;
constexpr int pageStep = 16;
const std::array<QString, 3> partColours = {u"#d03030"_s, u"#2e9e3f"_s, u"#3060d0"_s};

void setName(QWidget* widget, const QString& name, const QString& toolTip)
{
    widget->setObjectName(name);
    widget->setToolTip(toolTip);
}

QLineEdit* display(QWidget* parent, int characters)
{
    auto* box = new QLineEdit(parent);
    box->setReadOnly(true);
    box->setAlignment(Qt::AlignCenter);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QString(characters, u'0')) + 14);
    return box;
}

} // namespace

ColourTools::ColourTools(QWidget* parent)
    : QGroupBox(parent), m_label(new QLabel(tr("Transparency"), this)),
      m_transparency(new QSlider(Qt::Horizontal, this)), m_transpText(display(this, 3)),
      m_file(new QPushButton(u"↺"_s, this)), m_sample(new QLineEdit(this)),
      m_pipette(new QCheckBox(tr("Pick"), this)), m_ask(new QPushButton(u"..."_s, this)),
      m_parts(new QGridLayout)
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
    setName(m_transparency, u"Transparency"_s, tr("0 shows the fill, 255 only the background"));
    m_transparency->setRange(0, fullPart);
    m_transparency->setPageStep(pageStep);
    m_transpText->setObjectName(u"Text_Transp"_s);
    m_transpText->setFocusPolicy(Qt::NoFocus);
    setName(m_file, u"Command1"_s,
            tr("Fill and transparency as the file had them when it was opened"));
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
    setName(m_sample, u"TextColor"_s, tr("The fill of the selected object"));
    m_sample->setReadOnly(true);
    m_sample->setFocusPolicy(Qt::NoFocus);
    m_sample->setAlignment(Qt::AlignCenter);
    m_sample->setMinimumSize(48, fontMetrics().height());
    m_sample->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setName(m_pipette, u"Check1Pipetka"_s, tr("Pick the fill from the screen; Esc cancels"));
    setName(m_ask, u"ComRGB"_s, tr("Choose the fill"));
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
        m_boxes[part] = display(this, 2);
        m_boxes[part]->setObjectName(u"TextRGB(%1)"_s.arg(i));
        m_boxes[part]->setStyleSheet(u"color: %1; font-weight: bold;"_s.arg(partColours[part]));
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

// The boxes are displays with two keys of their own.
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
