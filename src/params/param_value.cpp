// SPDX-License-Identifier: MIT
#include "params/param_value.h"

#include "base/text.h"

namespace fennel {

namespace {

QString normaliseTyped(QStringView text)
{
    text = text.trimmed();
    if (!text.startsWith(u"0x", Qt::CaseInsensitive))
        return leadingNumberText(text);
    // Letters that are no digits stay as they were typed; they end the number when it is read. A
    // line end that was pasted along would break the line of a file.
    QString digits = QStringLiteral("000000") + text.mid(2).toString().toUpper();
    digits.remove(u'\n').remove(u'\r').remove(u'\t');
    return QStringLiteral("0x") + digits.right(6);
}

} // namespace

QString ParamValue::text() const
{
    if (!spelling.isEmpty())
        return spelling;
    return hex ? hexText(number) : QString::number(number);
}

ParamValue typedValue(QStringView text)
{
    return valueOf(normaliseTyped(text));
}

ParamValue valueOf(const QString& text)
{
    ParamValue value{numberFromText(text), text.startsWith(u"0x"), {}};
    if (value.text() != text)
        value.spelling = text;
    return value;
}

} // namespace fennel
