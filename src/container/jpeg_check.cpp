// SPDX-License-Identifier: MIT
#include "container/jpeg_check.h"

#include <cstddef>
#include <string>

namespace fennel {

namespace {

// Names of the JPEG standard (ITU-T T.81, table B.1).
enum Marker : int {
    Tem = 0x01,
    Sof0 = 0xC0,
    Dht = 0xC4,
    Jpg = 0xC8,
    Dac = 0xCC,
    SofLast = 0xCF,
    Rst0 = 0xD0,
    Soi = 0xD8,
    Eoi = 0xD9,
    Sos = 0xDA,
    Dri = 0xDD,
    App0 = 0xE0,
    AppLast = 0xEF,
    Com = 0xFE,
};

int byteAt(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

int wordAt(std::string_view bytes, std::size_t at)
{
    return byteAt(bytes, at) << 8 | byteAt(bytes, at + 1);
}

// Three codes in the range of frames have other meanings.
bool isFrame(int marker)
{
    return marker >= Sof0 && marker <= SofLast && marker != Dht && marker != Jpg && marker != Dac;
}

// Markers without a segment: no length follows.
bool standsAlone(int marker)
{
    return marker == Tem || (marker >= Rst0 && marker <= Soi);
}

// `body` is the segment without its marker and its length.
bool readFrame(int marker, std::string_view body, JpegHead& head)
{
    constexpr std::size_t fixedPart = 6;
    if (body.size() < fixedPart)
        return false;
    head.baseline = marker == Sof0;
    head.bits = byteAt(body, 0);
    head.height = wordAt(body, 1);
    head.width = wordAt(body, 3);
    head.components = byteAt(body, 5);
    if (body.size() < fixedPart + static_cast<std::size_t>(head.components) * 3)
        return false;
    head.sampling420 = head.components == 3;
    for (int i = 0; i < head.components; ++i) {
        // 4:2:0: brightness twice as fine as both colours, in either direction.
        const int wanted = i == 0 ? 0x22 : 0x11;
        if (byteAt(body, fixedPart + static_cast<std::size_t>(i) * 3 + 1) != wanted)
            head.sampling420 = false;
    }
    return true;
}

void readApplication(int marker, std::string_view body, JpegHead& head)
{
    using namespace std::string_view_literals;
    constexpr int perInch = 1;
    // Everything but the JFIF head counts as metadata, the profile of a camera as well.
    if (marker != App0 || !body.starts_with("JFIF\0"sv))
        head.metadata = true;
    else if (body.size() >= 12 && byteAt(body, 7) == perInch)
        head.dotsPerInch = wordAt(body, 8);
}

bool readSegment(int marker, std::string_view body, JpegHead& head)
{
    if (isFrame(marker))
        return readFrame(marker, body, head);
    if (marker == Dri && body.size() >= 2)
        head.restartInterval = wordAt(body, 0);
    if (marker >= App0 && marker <= AppLast)
        readApplication(marker, body, head);
    if (marker == Com)
        head.metadata = true;
    return true;
}

} // namespace

Result<JpegHead> readJpegHead(std::string_view bytes)
{
    const Failure malformed{FailureKind::Malformed, "The picture is no whole JPEG."};
    if (bytes.size() < 4 || wordAt(bytes, 0) != (0xFF00 | Soi))
        return malformed;
    JpegHead head;
    std::size_t at = 2;
    while (at + 4 <= bytes.size()) {
        if (byteAt(bytes, at) != 0xFF)
            return malformed;
        const int marker = byteAt(bytes, at + 1);
        if (marker == 0xFF || standsAlone(marker)) { // fill bytes may stand before any marker
            at += marker == 0xFF ? 1 : 2;
            continue;
        }
        const auto length = static_cast<std::size_t>(wordAt(bytes, at + 2));
        if (marker == Eoi || length < 2 || at + 2 + length > bytes.size())
            return malformed;
        // Behind it come coded pixels; whether the head is whole is all that is asked here.
        if (marker == Sos)
            return head.width > 0 && head.height > 0 ? Result(head) : Result<JpegHead>(malformed);
        if (!readSegment(marker, bytes.substr(at + 4, length - 2), head))
            return malformed;
        at += 2 + length;
    }
    return malformed;
}

int jpegScans(std::string_view bytes)
{
    int scans = 0;
    std::size_t at = 2;
    // A 0 behind 0xFF is a coded byte; what stands alone has no length to pass over.
    while ((at = bytes.find('\xFF', at)) < bytes.size() && at + 4 <= bytes.size()) {
        const int marker = byteAt(bytes, at + 1);
        if (marker == Eoi || (marker == Sos && ++scans > maxJpegScans))
            break;
        if (marker == 0xFF)
            at += 1;
        else if (marker == 0 || standsAlone(marker))
            at += 2;
        else
            at += 2 + static_cast<std::size_t>(wordAt(bytes, at + 2));
    }
    return scans;
}

// What the engine's own small decoder can do; the first fault found is the one told.
Result<void> checkBootable(const JpegHead& head)
{
    std::string why;
    if (!head.baseline)
        why = "is progressive or of another kind that is not baseline";
    else if (head.bits != 8)
        why = "has " + std::to_string(head.bits) + " bits a sample";
    else if (head.components != 3)
        why = "has " + std::to_string(head.components) + " colour components instead of 3";
    else if (!head.sampling420)
        why = "is not sampled 4:2:0";
    else if (head.restartInterval != 0)
        why = "has restart markers";
    else
        return {};
    return Failure{FailureKind::Unsupported, "The JPEG " + why + "; the boot screen stays black."};
}

} // namespace fennel
