// SPDX-License-Identifier: MIT
#include "editor/window/retranslated.h"

#include "base/words.h"

#include <QAbstractButton>
#include <QEvent>
#include <QWidget>

namespace fennel {

namespace {

class Retranslation : public QObject {
public:
    Retranslation(QWidget* widget, std::function<void()> say)
        : QObject(widget), m_say(std::move(say))
    {
        widget->installEventFilter(this);
        m_say();
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange)
            m_say();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_say;
};

} // namespace

void retranslated(QWidget* widget, const std::function<void()>& say)
{
    new Retranslation(widget, say);
}

void sayText(QAbstractButton* button, const char* text)
{
    retranslated(button, [button, text] { button->setText(Words::tr(text)); });
}

void sayName(QWidget* widget, const char* text)
{
    retranslated(widget, [widget, text] { widget->setAccessibleName(Words::tr(text)); });
}

void sayTip(QWidget* widget, const char* text)
{
    retranslated(widget, [widget, text] {
        widget->setToolTip(Words::tr(text));
        widget->setAccessibleName(Words::tr(text));
    });
}

} // namespace fennel
