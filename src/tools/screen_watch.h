// SPDX-License-Identifier: MIT
// What a booting machine's screen shows: a picture or the loader's text, and whether it rests.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

namespace fennel {

// A file in PPM, as QEMU dumps the screen.
struct ScreenDump {
    QByteArray file;
    QSize size;             // empty: no such file
    qsizetype pixelsAt = 0; // of the first byte of three a pixel, red first

    ScreenDump() = default;
    explicit ScreenDump(const QByteArray& ppm);
    // 80 by 25 letters of 9 by 16 pixels, in which loaders write.
    [[nodiscard]] bool isText() const { return size == QSize(720, 400); }
    [[nodiscard]] QImage picture() const { return QImage::fromData(file, "PPM"); }
};

// The lines of the text screen out of its memory (80 by 25 letters and attributes), without those
// that are empty.
QStringList screenText(const QByteArray& memory);
inline constexpr quint32 textMemoryAt = 0xB8000;
inline constexpr quint32 textMemoryBytes = 4000;

// What a text means that a loader wrote instead of showing a menu; nothing is known of most texts.
// `certain`: no menu comes any more.
struct TextMeaning {
    QString sentence;
    bool certain = false;
};
TextMeaning meaningOf(const QStringList& text);

// The share of the pixels, 0 to 1, in the colour that most have.
double mostFrequentColour(const QImage& picture);

// Of a machine since it began, in ms: how long processors worked for it, and how long it was ready
// to work and got none, as the computer was busy. Of threads that ended the second is lost.
struct MachineTime {
    qint64 work = 0;
    qint64 waited = 0;
};

// Tells when a screen rests: it does not change any more while the guest had time to change it.
class RestWatch {
public:
    // `fast`: the guest runs on the computer's own processor, by KVM.
    explicit RestWatch(bool fast = false) : m_fast(fast) {}
    // Whatever rested so far: the guest is given the time anew, such as for its answer to a key.
    void startOver();
    // Whether the guest has set any mode; before that QEMU shows a picture of its own.
    [[nodiscard]] bool begun() const { return m_begun; }
    // Whether it has set one of pictures.
    [[nodiscard]] bool drawn() const
    {
        return m_begun && !m_last.size.isEmpty() && !m_last.isText();
    }
    // All pixels of the last dump have one colour.
    [[nodiscard]] bool isEmpty() const { return m_empty; }
    // The next dump, and the guest's time until then. True if two dumps are equal, and a moment of
    // work lies between them; or if only small things go on moving, such as a clock.
    bool pictureRests(const ScreenDump& dump, const MachineTime& now);
    // The same for the text, which a slow loader may add to; a cursor does not count.
    bool textRests(const QStringList& text, const MachineTime& now);

private:
    struct Still {
        bool same = false; // as the one before
        int idle = 0;      // such ones in a row between which the guest had nothing to do
        qint64 since = 0;  // its work until the first of them
        MachineTime last;
        void count(bool equal, const MachineTime& now);
        [[nodiscard]] bool lasts(qint64 needed, int enough) const;
    };
    [[nodiscard]] qint64 neededWork(QSize size) const;

    bool m_fast;
    bool m_begun = false;
    bool m_empty = false;
    ScreenDump m_last;
    QStringList m_lastText;
    Still m_equal;   // not a pixel moves
    Still m_moving;  // a small share of them does
    Still m_textual; // letter for letter
};

} // namespace fennel
