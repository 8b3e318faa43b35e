// SPDX-License-Identifier: MIT
// A user who does anything at any time, from a seed that is printed: after every action the parts
// of the program agree, and hours of it need no more memory than minutes.
#include "desktop/random_user.h"

using namespace fennel;
using namespace fennel::test;

namespace {
constexpr qint64 allowedGrowth = 32LL * 1024 * 1024;
} // namespace

TEST(RandomUser, FindsThePartsInAgreementWhateverItDoes)
{
    const unsigned first = seed();
    const int count = rounds(100, 2000);
    RandomUser user(first);
    qint64 early = 0;
    std::string before;
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
        const Watchdog dog(hangTime);
        const std::string what = user.act();
        SCOPED_TRACE("seed " + std::to_string(first) + ", action " + std::to_string(i) + ": " +
                     what + " after " + before);
        const QStringList wrong = disagreements(user.story) +
                                  (user.saved ? disagreementsWithFile(user.story) : QStringList());
        EXPECT_TRUE(wrong.isEmpty()) << wrong.join(u'\n').toStdString();
        before = what + ", " + before.substr(0, 60);
        if (i == count / 4) {
            user.makeNew();
            early = residentBytes();
        }
    }
    user.makeNew();
    const qint64 growth = early == 0 ? 0 : residentBytes() - early;
    std::cout << "seed " << first << ": " << count << " actions, " << user.story.user().texts.size()
              << " messages, memory " << residentBytes() / 1024 << " KiB, " << growth / 1024
              << " KiB more than after a quarter of them\n";
    if (memoryIsCounted) {
        EXPECT_LT(growth, allowedGrowth);
    }
}
