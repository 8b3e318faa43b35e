// SPDX-License-Identifier: MIT
#include "tools/boot_once.h"

#include "base/words.h"

#include <QEventLoop>

#include <algorithm>
#include <cmath>
#include <utility>

namespace fennel {

namespace {

using namespace Qt::StringLiterals;

struct KeyName {
    const char16_t* people;
    const char16_t* qemu;
};
constexpr KeyName keyNames[] = {
    {u"enter", u"ret"},    {u"return", u"ret"},    {u"escape", u"esc"},  {u"space", u"spc"},
    {u"pageup", u"pgup"},  {u"pagedown", u"pgdn"}, {u"del", u"delete"},  {u"ins", u"insert"},
    {u"control", u"ctrl"}, {u"-", u"minus"},       {u"=", u"equal"},     {u".", u"dot"},
    {u",", u"comma"},      {u"/", u"slash"},       {u";", u"semicolon"}, {u"'", u"apostrophe"},
};
const QStringList qemuKeys = {u"ret"_s,  u"esc"_s,   u"spc"_s,   u"tab"_s,       u"backspace"_s,
                              u"up"_s,   u"down"_s,  u"left"_s,  u"right"_s,     u"home"_s,
                              u"end"_s,  u"pgup"_s,  u"pgdn"_s,  u"insert"_s,    u"delete"_s,
                              u"ctrl"_s, u"alt"_s,   u"shift"_s, u"minus"_s,     u"equal"_s,
                              u"dot"_s,  u"comma"_s, u"slash"_s, u"semicolon"_s, u"apostrophe"_s};

std::optional<QString> oneKey(const QString& name)
{
    const QString word = name.trimmed().toLower();
    for (const KeyName& row : keyNames) {
        if (word == QStringView(row.people))
            return QString::fromUtf16(row.qemu);
    }
    const bool letter =
        word.size() == 1 && word.at(0).unicode() < 0x80 && word.at(0).isLetterOrNumber();
    bool isNumber = false;
    const int number = word.startsWith(u'f') ? word.mid(1).toInt(&isNumber) : 0;
    if (letter || qemuKeys.contains(word) || (isNumber && number >= 1 && number <= 12))
        return word;
    return std::nullopt;
}

// The keys and the wait, one step behind every rest of the screen.
class Script : public QObject {
public:
    Script(BootTest& test, const QStringList& keys, double atSeconds, QEventLoop& loop)
        : m_test(test), m_keys(keys), m_loop(loop)
    {
        m_wait.setSingleShot(true);
        m_wait.setInterval(
            static_cast<int>(std::lround(std::clamp(atSeconds, 0.0, 3600.0) * 1000)));
        connect(&m_wait, &QTimer::timeout, this, &Script::goOn);
        connect(&test, &BootTest::rested, this, [this] {
            if (!std::exchange(m_began, true)) {
                m_wait.start();
                // A menu that has just been drawn may throw away the first key.
                if (!m_keys.isEmpty() && m_test.state() == BootState::Standing) {
                    m_test.restAgain();
                    return;
                }
            }
            m_rests = true;
            goOn();
        });
        connect(&test, &BootTest::stateChanged, this, [this] {
            if (m_test.state() == BootState::Hanging)
                m_loop.quit();
        });
    }

private:
    void goOn()
    {
        if (!m_rests)
            return;
        const bool ended = m_test.state() == BootState::Ended;
        if (!ended && !m_keys.isEmpty()) {
            m_rests = false;
            m_test.press(m_keys.takeFirst());
        } else if (ended || !m_wait.isActive()) {
            m_loop.quit();
        }
    }

    BootTest& m_test;
    QStringList m_keys;
    QTimer m_wait;
    QEventLoop& m_loop;
    bool m_began = false;
    bool m_rests = false;
};

} // namespace

std::optional<QString> bootKey(const QString& name)
{
    QStringList held;
    for (const QString& part : name.split(u'+')) {
        const std::optional<QString> key = oneKey(part);
        if (!key)
            return std::nullopt;
        held.append(*key);
    }
    return held.join(u'+');
}

Result<BootResult> bootOnce(const Shell& shell, const BootOrder& order, Progress* progress)
{
    QStringList keys;
    for (const QString& name : order.keys) {
        const std::optional<QString> key = bootKey(name);
        if (!key)
            return Failure{FailureKind::Malformed,
                           Words::tr("\"%1\" is no key.").arg(name).toStdString()};
        keys.append(*key);
    }
    QEventLoop loop;
    BootTest test(shell, order.limits);
    const Script script(test, keys, order.atSeconds, loop);
    std::optional<Failure> failure;
    QObject::connect(&test, &BootTest::failed, &loop, [&](const Failure& found) {
        failure = found;
        loop.quit();
    });
    if (progress != nullptr)
        QObject::connect(progress, &Progress::cancelRequested, &loop, [&] {
            failure = canceledByUser();
            loop.quit();
        });
    test.start(order.stick, order.mayUseKvm);
    loop.exec();
    if (failure)
        return *failure;
    return BootResult{test.state(), test.picture(), test.text(),
                      test.words(), test.bootMs(),  test.usesKvm()};
}

} // namespace fennel
