// SPDX-License-Identifier: MIT
// A whole message file in memory: read, changed member by member, written. What was not changed is
// written as it was read. For work that needs no folder of members.
#pragma once

#include "container/cpio.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace fennel {

struct MessageMember {
    QByteArray name; // bytes of an unknown code page
    QByteArray data;
    std::uint32_t mtime = 0; // seconds since 1970
    std::optional<CpioFacts> facts = {};
};

struct MessageFile {
    // The gzip member around the archive.
    struct Wrapping {
        std::string name; // FNAME, as it stands
        std::uint32_t mtime = 0;
    };
    std::optional<Wrapping> gzip;
    std::vector<MessageMember> members; // in archive order

    // Null without such a member.
    [[nodiscard]] const MessageMember* find(const QByteArray& name) const;
    // The member's bytes, empty without it.
    [[nodiscard]] QByteArray bytesOf(const QByteArray& name) const;
    // Gives the member, or a new one at the end, these bytes, as of now. The same bytes change
    // nothing.
    void put(const QByteArray& name, const QByteArray& data);
    // 3 with level files, 2 with gfxboot.cfg, otherwise 1.
    [[nodiscard]] int generation() const;
};

// The name that the archive has inside a gzip file.
inline constexpr std::string_view wrappedName = "#message";

// Failures: those of readCpio() and gzipDecompress(); Unsupported without back.jpg, which makes an
// archive a gfxboot. Their texts do not name the file.
Result<MessageFile> readMessage(const QByteArray& bytes);

// Failures: those of writeCpio() and gzipCompress().
Result<QByteArray> writeMessage(const MessageFile& message);

} // namespace fennel
