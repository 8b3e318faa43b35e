// SPDX-License-Identifier: MIT
// Tests that repeat themselves: how often, from which seed, and what they measure. ./test runs them
// briefly; ./test --long sets FENNEL_LONG=1 for the thorough run. FENNEL_SEED gives another seed,
// FENNEL_ROUNDS another number of rounds.
#pragma once

#include <QtGlobal>

#include <iterator>
#include <random>

namespace fennel::test {

// True in the thorough run.
bool longRun();
int rounds(int usual, int thorough);
unsigned seed();
// The sanitizer keeps freed memory on purpose, so that growth says nothing.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool memoryIsCounted = false;
#else
inline constexpr bool memoryIsCounted = true;
#endif

qint64 residentBytes(); // of this process, after freed memory went back to the system
// The most that this process, or any tool that it has waited for, ever had.
qint64 peakBytes();
// What this process and the tools that it has waited for have used of the processor, in ms: unlike
// the clock, no busy machine adds to it.
qint64 processorTime();

// Ends the process if the code it stands beside takes longer: a hang must not wait for CTest.
class Watchdog {
public:
    explicit Watchdog(unsigned seconds);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
};

// Random choices that a seed repeats on every machine, which the library's distributions do not.
class Dice {
public:
    explicit Dice(unsigned start) : m_engine(start) {}
    // 0 to `count` - 1; 0 if there is nothing to choose from.
    qsizetype below(qsizetype count)
    {
        return count <= 0 ? 0 : static_cast<qsizetype>(m_engine() % static_cast<quint64>(count));
    }
    int between(int least, int most) { return least + static_cast<int>(below(most - least + 1)); }
    bool chance(int percent) { return below(100) < percent; }
    template <class List>
    auto& of(List& list)
    {
        return *std::next(std::begin(list), below(std::ssize(list)));
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace fennel::test
