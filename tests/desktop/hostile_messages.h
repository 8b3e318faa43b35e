// SPDX-License-Identifier: MIT
// Message files as an attacker or a broken disk makes them: real ones of each generation, changed
// in their bytes, in the headers of their members, or in one member's contents.
#pragma once

#include "container/raw_cpio.h"
#include "support/long_run.h"
#include "support/test_shell.h"

namespace fennel::test {

struct HostileMessage {
    QString kind; // what was done to it, for the report
    QString name; // a file name that people may give it
    QByteArray bytes;
};

class HostileMessages {
public:
    // `forbidden`: an absolute path that member names point at, beside the usual "../x".
    explicit HostileMessages(const QString& forbidden);
    [[nodiscard]] HostileMessage next(Dice& dice) const;

private:
    using Members = std::vector<RawMember>;
    void addSmallOnes();
    void mangleBytes(std::string& bytes, Dice& dice, QString& kind) const;
    void mangleHeader(Members& members, Dice& dice, QString& kind) const;
    void mangleContents(Members& members, Dice& dice, QString& kind) const;
    [[nodiscard]] std::string packed(const Members& members, Dice& dice) const;

    std::vector<Members> m_messages;
    std::vector<std::string> m_names; // that no member may have, or hardly any
};

} // namespace fennel::test
