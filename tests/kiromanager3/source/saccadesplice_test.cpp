#include "saccadesplice.h"

#include "saccadestates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

/// Saccades of which each letter stands for one.
QList<KiroSaccade> listOf(const std::string& letters)
{
    QList<KiroSaccade> list;
    for (const char letter : letters) {
        KiroSaccade saccade;
        saccade.main.start = letter;
        list.append(saccade);
    }
    return list;
}

std::string lettersOf(const QList<KiroSaccade>& list)
{
    std::string letters;
    for (const KiroSaccade& saccade : list)
        letters += char(saccade.main.start);
    return letters;
}

/// The stretch as "ahead[before>after]behind".
std::string drawn(const std::string& old, const std::string& edited)
{
    const SaccadeSplice splice = SaccadeSplice::between(listOf(old), listOf(edited));
    const auto behind = std::size_t(splice.from + splice.before.size());
    return old.substr(0, std::size_t(splice.from)) + '[' + lettersOf(splice.before) + '>' +
           lettersOf(splice.after) + ']' + old.substr(behind);
}

} // namespace

TEST(SaccadeSplice, IsTheShortestStretchThatDiffers)
{
    EXPECT_EQ(drawn("abc", "aBc"), "a[b>B]c");
    EXPECT_EQ(drawn("abc", "abXc"), "ab[>X]c");
    EXPECT_EQ(drawn("abc", "ac"), "a[b>]c");
    EXPECT_EQ(drawn("abc", "Xabc"), "[>X]abc");
    EXPECT_EQ(drawn("abc", "bc"), "[a>]bc");
    EXPECT_EQ(drawn("abc", "ab"), "ab[c>]");
    EXPECT_EQ(drawn("abcde", "aXcYe"), "a[bcd>XcY]e");
    EXPECT_EQ(drawn("abc", "xyz"), "[abc>xyz]");
    EXPECT_EQ(drawn("", "ab"), "[>ab]");
    EXPECT_EQ(drawn("ab", ""), "[ab>]");
    EXPECT_EQ(drawn("aa", "aaa"), "aa[>a]");
    EXPECT_EQ(drawn("aba", "a"), "a[ba>]");
}

TEST(SaccadeSplice, IsEmptyForTheSameList)
{
    StateDice dice(1);
    const QList<KiroSaccade> list = dice.anyState(20).saccades;
    QList<KiroSaccade> copy = list;
    copy[3].main.reserved = list[3].main.reserved; // which makes it a list of its own
    EXPECT_TRUE(SaccadeSplice::between(list, copy).isEmpty());
    EXPECT_TRUE(SaccadeSplice::between({}, {}).isEmpty());
    EXPECT_FALSE(SaccadeSplice::between(list, {}).isEmpty());
}

TEST(SaccadeSplice, EveryFieldCounts)
{
    StateDice dice(2);
    const KiroSaccade saccade = dice.anySaccade();
    int fields = 0;
    for (const auto block : {&KiroSaccade::main, &KiroSaccade::left, &KiroSaccade::right}) {
        for (const auto member : {&KiroSaccadeEye::start, &KiroSaccadeEye::end, &KiroSaccadeEye::duration,
                                  &KiroSaccadeEye::fixation, &KiroSaccadeEye::reserved}) {
            KiroSaccade other = saccade;
            other.*block.*member ^= 1;
            EXPECT_FALSE(sameBits(saccade, other)) << fields;
            ++fields;
        }
        for (const auto member :
             {&KiroSaccadeEye::amplitude, &KiroSaccadeEye::peakVelocity, &KiroSaccadeEye::meanVelocity,
              &KiroSaccadeEye::peakAcceleration, &KiroSaccadeEye::velocityPerDuration,
              &KiroSaccadeEye::amplitudeHorz, &KiroSaccadeEye::startHorz, &KiroSaccadeEye::endHorz,
              &KiroSaccadeEye::amplitudeVert, &KiroSaccadeEye::startVert, &KiroSaccadeEye::endVert}) {
            KiroSaccade other = saccade;
            other.*block.*member = -(saccade.*block.*member);
            EXPECT_FALSE(sameBits(saccade, other)) << fields;
            ++fields;
        }
    }
    EXPECT_EQ(fields, 3 * 16);
    KiroSaccade other = saccade;
    other.valid = !other.valid;
    EXPECT_FALSE(sameBits(saccade, other));
    EXPECT_TRUE(sameBits(saccade, KiroSaccade(saccade)));
}

TEST(SaccadeSplice, BitsAreCompared)
{
    KiroSaccade a;
    KiroSaccade b;
    a.main.amplitude = b.main.amplitude = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(sameBits(a, b));
    a.main.startVert = -0.0;
    EXPECT_FALSE(sameBits(a, b));
    EXPECT_EQ(a.main.startVert, b.main.startVert);
}

TEST(SaccadeSplice, MakesTheOneListOfTheOther)
{
    const char* const lists[] = {"",    "a",   "b",     "ab",     "ba",  "abc",
                                 "axc", "aac", "xabcy", "abcabc", "cab", "aaaa"};
    for (const std::string old : lists) {
        for (const std::string edited : lists) {
            const SaccadeSplice splice = SaccadeSplice::between(listOf(old), listOf(edited));
            QList<KiroSaccade> list = listOf(old);
            splice.apply(list);
            EXPECT_EQ(lettersOf(list), edited) << old;
            splice.revert(list);
            EXPECT_EQ(lettersOf(list), old) << edited;
        }
    }
}
