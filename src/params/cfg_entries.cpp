// SPDX-License-Identifier: MIT
#include "params/cfg_entries.h"

#include <algorithm>

namespace fennel {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isNameByte(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           c == '.' || c == '-';
}

class Line {
public:
    Line(const QByteArray& bytes, qsizetype from, qsizetype to)
        : m_bytes(bytes), m_from(from), m_at(from), m_to(to)
    {
        skipBlanks();
    }
    // "[section]" gives its name, everything else nothing.
    [[nodiscard]] QByteArray section() const
    {
        const qsizetype close = m_bytes.indexOf(']', m_at);
        const bool is = m_at < m_to && m_bytes[m_at] == '[' && close > 0 && close < m_to;
        return is ? m_bytes.mid(m_at + 1, close - m_at - 1) : QByteArray();
    }
    bool readEntry(CfgEntry& entry)
    {
        entry.line = m_from;
        while (m_at < m_to && (m_bytes[m_at] == '#' || m_bytes[m_at] == ';')) {
            entry.on = false;
            ++m_at;
            skipBlanks();
        }
        const qsizetype name = m_at;
        while (m_at < m_to && isNameByte(m_bytes[m_at]))
            ++m_at;
        entry.name = m_bytes.mid(name, m_at - name);
        if (entry.name.isEmpty() || m_at >= m_to || m_bytes[m_at] != '=')
            return false;
        ++m_at;
        skipBlanks();
        entry.value = m_at;
        entry.end = valueEnd();
        return true;
    }

private:
    void skipBlanks()
    {
        while (m_at < m_to && isBlank(m_bytes[m_at]))
            ++m_at;
    }
    [[nodiscard]] qsizetype valueEnd() const
    {
        qsizetype end = m_at;
        while (end < m_to && !(m_bytes[end] == '#' && (end == m_at || isBlank(m_bytes[end - 1]))))
            ++end;
        while (end > m_at && isBlank(m_bytes[end - 1]))
            --end;
        return end;
    }

    const QByteArray& m_bytes;
    qsizetype m_from;
    qsizetype m_at;
    qsizetype m_to;
};

} // namespace

std::vector<CfgEntry> cfgEntries(const QByteArray& bytes)
{
    std::vector<CfgEntry> entries;
    QByteArray section;
    const qsizetype start = bytes.startsWith("\xef\xbb\xbf") ? 3 : 0;
    for (qsizetype from = start; from < bytes.size();) {
        const auto* const end = std::find_if(bytes.cbegin() + from, bytes.cend(),
                                             [](char c) { return c == '\n' || c == '\r'; });
        const qsizetype to = end - bytes.cbegin();
        Line line(bytes, from, to);
        CfgEntry entry;
        if (const QByteArray name = line.section(); !name.isEmpty())
            section = name;
        else if (line.readEntry(entry)) {
            entry.section = section;
            entries.push_back(entry);
        }
        from = to + 1;
    }
    return entries;
}

} // namespace fennel
