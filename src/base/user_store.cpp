// SPDX-License-Identifier: MIT
#include "base/user_store.h"

#include "base/run_state.h"

#include <QStringList>

namespace fennel {

namespace {

QString fullKey(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

// A value with a comma that somebody typed into the file without quotes is read as a list.
QString asText(const QVariant& value)
{
    return value.toStringList().join(QLatin1String(", "));
}

} // namespace

UserStore::UserStore()
    : m_settings(QSettings::NativeFormat, QSettings::UserScope, programTitle(), programTitle())
{
    // Only what this user stored counts, not the defaults of a whole machine.
    m_settings.setFallbacksEnabled(false);
}

UserStore::UserStore(const QString& file) : m_settings(file, QSettings::IniFormat) {}

QString UserStore::get(const QString& section, const QString& key, const QString& fallback) const
{
    const QVariant value = m_settings.value(fullKey(section, key));
    return value.isValid() ? asText(value) : fallback;
}

void UserStore::save(const QString& section, const QString& key, const QString& value)
{
    m_settings.setValue(fullKey(section, key), value);
    m_settings.sync();
}

void UserStore::deleteSection(const QString& section)
{
    m_settings.remove(section);
    m_settings.sync();
}

void UserStore::replaceSection(const QString& section, const Entries& entries)
{
    m_settings.remove(section);
    for (const auto& [key, value] : entries)
        m_settings.setValue(fullKey(section, key), value);
    m_settings.sync();
}

UserStore::Entries UserStore::listAll(const QString& section) const
{
    m_settings.beginGroup(section);
    // The back ends list keys in different orders.
    QStringList keys = m_settings.childKeys();
    keys.sort();
    Entries all;
    for (const QString& key : std::as_const(keys))
        all.emplace_back(key, asText(m_settings.value(key)));
    m_settings.endGroup();
    return all;
}

} // namespace fennel
