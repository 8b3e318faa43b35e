// SPDX-License-Identifier: MIT
// Archives made field by field, so that a test can put anything anywhere: either byte order, wrong
// sizes, names that no writer would write.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace fennel::test {

struct RawMember {
    std::string name = {};
    std::string data = {};
    unsigned device = 0;
    unsigned inode = 0;
    unsigned mode = 0100644;
    unsigned links = 1;
    std::uint32_t mtime = 0;
    unsigned nameSize = ~0U; // as told in the header; by default the true one
    std::uint32_t fileSize = ~0U;
};

class RawCpio {
public:
    explicit RawCpio(bool bigEndian = false) : m_bigEndian(bigEndian) {}

    RawCpio& add(const RawMember& m)
    {
        const auto size = static_cast<std::uint32_t>(m.data.size());
        for (const unsigned value : {0x71C7U, m.device, m.inode, m.mode, 0U, 0U, m.links, 0U})
            word(value);
        pair(m.mtime);
        word(m.nameSize == ~0U ? static_cast<unsigned>(m.name.size() + 1) : m.nameSize);
        pair(m.fileSize == ~0U ? size : m.fileSize);
        m_bytes += m.name + '\0';
        pad();
        m_bytes += m.data;
        pad();
        return *this;
    }
    // The archive up to the trailer's end, without fill.
    [[nodiscard]] std::string close()
    {
        add({.name = "TRAILER!!!", .mode = 0});
        return m_bytes;
    }
    [[nodiscard]] const std::string& open() const { return m_bytes; }

private:
    void word(unsigned value)
    {
        const char low = static_cast<char>(value & 0xffU);
        const char high = static_cast<char>(value >> 8U & 0xffU);
        m_bytes += m_bigEndian ? high : low;
        m_bytes += m_bigEndian ? low : high;
    }
    void pair(std::uint32_t value)
    {
        word(value >> 16U);
        word(value & 0xffffU);
    }
    void pad() { m_bytes.resize(m_bytes.size() + m_bytes.size() % 2); }

    bool m_bigEndian;
    std::string m_bytes;
};

} // namespace fennel::test
