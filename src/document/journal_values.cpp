// SPDX-License-Identifier: MIT
#include "document/journal_values.h"

#include "params/zuk_table.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace fennel {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView formatName("fennel-gfx unsaved work");
constexpr int formatVersion = 1;

// Numbers are texts: those of JSON end at 2^53.
QString digits(qint64 number)
{
    return QString::number(number);
}

qint64 numberOf(const QJsonValue& value)
{
    return value.toString().toLongLong();
}

QString packed(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QByteArray unpacked(const QJsonValue& value)
{
    return QByteArray::fromBase64(value.toString().toLatin1());
}

QJsonArray toJson(const ParamValue& value)
{
    return {digits(value.number), value.hex, value.spelling};
}

ParamValue valueFrom(const QJsonValue& json)
{
    return {numberOf(json[0]), json[1].toBool(), json[2].toString()};
}

QJsonObject toJson(const JournalSource& source)
{
    return {{u"path"_s, source.path},
            {u"size"_s, digits(source.size)},
            {u"modified"_s, digits(source.modified)},
            {u"checksum"_s, QString::fromLatin1(source.checksum)}};
}

JournalSource sourceFrom(const QJsonValue& json)
{
    return {json[u"path"].toString(), numberOf(json[u"size"]), numberOf(json[u"modified"]),
            json[u"checksum"].toString().toLatin1()};
}

QJsonArray toJson(const std::map<ParamKey, ParamValue>& params)
{
    QJsonArray list;
    for (const auto& [key, value] : params)
        list.append(QJsonArray{key.file, key.number, toJson(value)});
    return list;
}

std::map<ParamKey, ParamValue> paramsFrom(const QJsonValue& json)
{
    std::map<ParamKey, ParamValue> params;
    for (const QJsonValue entry : json.toArray()) {
        const ParamKey key{entry[0].toInt(-1), entry[1].toInt()};
        if (ZUKarr::inRange(key.file, key.number))
            params[key] = valueFrom(entry[2]);
    }
    return params;
}

QJsonObject toJson(const CfgLine& line)
{
    return {{u"kind"_s, static_cast<int>(line.kind)},
            {u"name"_s, line.name},
            {u"value"_s, toJson(line.value)},
            {u"valued"_s, line.valued},
            {u"comment"_s, line.comment},
            {u"tip"_s, line.tip},
            {u"on"_s, line.on}};
}

CfgLines linesFrom(const QJsonValue& json)
{
    CfgLines lines;
    for (const QJsonValue entry : json.toArray()) {
        const int kind = entry[u"kind"].toInt(-1);
        if (kind >= 0 && kind <= static_cast<int>(CfgKindOfLine::Separator))
            lines.append({static_cast<CfgKindOfLine>(kind), entry[u"name"].toString(),
                          valueFrom(entry[u"value"]), entry[u"valued"].toBool(),
                          entry[u"comment"].toString(), entry[u"tip"].toString(),
                          entry[u"on"].toBool()});
    }
    return lines;
}

QJsonObject toJson(const CfgState& cfg)
{
    QJsonArray lines;
    for (const CfgLine& line : cfg.lines)
        lines.append(toJson(line));
    return {{u"lines"_s, lines}, {u"bytes"_s, packed(cfg.bytes)}};
}

} // namespace

QByteArray checksumOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QByteArray journalText(const JournalValues& values)
{
    const QJsonObject base{{u"name"_s, values.base},
                           {u"size"_s, digits(values.baseSize)},
                           {u"checksum"_s, QString::fromLatin1(values.baseChecksum)}};
    const QJsonObject all{{u"format"_s, formatName},
                          {u"version"_s, formatVersion},
                          {u"when"_s, values.when.toString(Qt::ISODateWithMs)},
                          {u"name"_s, values.name},
                          {u"gz"_s, values.gz},
                          {u"source"_s, toJson(values.source)},
                          {u"upgrade"_s, values.upgradeChoice},
                          {u"params"_s, toJson(values.params)},
                          {u"cfg"_s, toJson(values.cfg)},
                          {u"base"_s, base}};
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

Result<JournalValues> journalValuesFrom(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonValue all = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError)
        return Failure{FailureKind::Malformed,
                       "The values of the unsaved work are cut or damaged."};
    if (all[u"format"].toString() != formatName)
        return Failure{FailureKind::Malformed,
                       "The values of the unsaved work were not written by this program."};
    if (all[u"version"].toInt() != formatVersion)
        return Failure{FailureKind::Unsupported,
                       "The values of the unsaved work were written by another version of this "
                       "program."};
    const QJsonValue base = all[u"base"];
    const QJsonValue cfg = all[u"cfg"];
    return JournalValues{QDateTime::fromString(all[u"when"].toString(), Qt::ISODateWithMs),
                         all[u"name"].toString(),
                         all[u"gz"].toBool(),
                         sourceFrom(all[u"source"]),
                         all[u"upgrade"].toInt(),
                         paramsFrom(all[u"params"]),
                         {linesFrom(cfg[u"lines"]), unpacked(cfg[u"bytes"])},
                         base[u"name"].toString(),
                         numberOf(base[u"size"]),
                         base[u"checksum"].toString().toLatin1()};
}

} // namespace fennel
