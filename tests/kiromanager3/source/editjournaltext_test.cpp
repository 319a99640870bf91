#include "editjournaltext.h"

#include "saccadesplice.h"
#include "saccadestates.h"

#include <QCryptographicHash>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace
{

QByteArray lineOf(const QByteArray& content)
{
    return content + " #" + QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().left(16) +
           '\n';
}

/// The lines of a state without edits.
QByteArray textOf(const SaccadeState& state)
{
    return EditJournalText::head(state) +
           EditJournalText::edit(0, SaccadeSplice::between({}, state.saccades), state.currentSaccade);
}

/// The line that makes `edited` of `old`.
QByteArray editOf(int number, const SaccadeState& old, const SaccadeState& edited)
{
    return EditJournalText::edit(number, SaccadeSplice::between(old.saccades, edited.saccades),
                                 edited.currentSaccade);
}

/// What a text is read as: the state, or "unreadable", and the problem if there is one.
std::string readAs(const QByteArray& text, std::string* problemText = nullptr)
{
    SaccadeState state;
    state.saccadeFile = QStringLiteral("was here before");
    const std::string before = StateBits(state).bytes();
    QString problem = QStringLiteral("old");
    const bool read = EditJournalText::read(text, state, problem);
    if (problemText)
        *problemText = problem.toStdString();
    if (read)
        return StateBits(state).bytes();
    EXPECT_EQ(StateBits(state).bytes(), before);
    EXPECT_FALSE(problem.isEmpty());
    return "unreadable";
}

void expectRead(const QByteArray& text, const SaccadeState& wanted)
{
    std::string problem;
    EXPECT_TRUE(readAs(text, &problem) == bitsOf(wanted));
    EXPECT_EQ(problem, "");
}

/// Three saccades and some edits of them, and what is read of their text.
struct Edited
{
    explicit Edited(int editCount)
    {
        states.push_back(dice.anyState(3));
        text = textOf(states[0]);
        lineEnds.push_back(text.size());
        for (int i = 1; i <= editCount; ++i) {
            states.push_back(states.back());
            states.back().currentSaccade = i % 3;
            states.back().saccades[i % 3] = dice.anySaccade();
            text += editOf(i, states[std::size_t(i) - 1], states.back());
            lineEnds.push_back(text.size());
        }
    }

    StateDice dice{4};
    std::vector<SaccadeState> states;
    QByteArray text;
    std::vector<int> lineEnds; ///< ends of the edits
};

/// A sound text and one more line.
QByteArray withLine(const QByteArray& content)
{
    return Edited(0).text + lineOf(content);
}

} // namespace

TEST(EditJournalText, DefaultStateIsReadBack)
{
    expectRead(textOf(SaccadeState()), SaccadeState());
}

TEST(EditJournalText, EveryBitIsReadBack)
{
    StateDice dice(5);
    for (int count = 0; count < 40; ++count) {
        const SaccadeState state = dice.anyState(count);
        expectRead(textOf(state), state);
    }
}

TEST(EditJournalText, OddTextsAreReadBack)
{
    SaccadeState state;
    state.saccadeFile = QStringLiteral("/a b/100% %0041/\n\r\t") + QChar(0) + QChar(0xd800) + QChar(0xfeff) +
                        QStringLiteral("\u0105\u20ac\U0001f600 #0123456789abcdef ");
    state.dataFile = QChar(0xfffe) + QString(20000, QLatin1Char('d')) + QChar(0xdc00);
    state.header.fileName = KiroString::fromBytes(std::string("\xff\xfe\0\n%41 +", 8));
    state.header.dataFile = KiroString::fromBytes(std::string(5000, 'p'));
    state.header.relativeDataFile = KiroString::fromBytes(std::string(4096, '\x80'));
    state.header.comment = KiroString::fromBytes(std::string(9000, 'c') + '\0' + "behind");
    state.header.version = 7;
    expectRead(textOf(state), state);
}

TEST(EditJournalText, OddNumbersAreReadBack)
{
    SaccadeState state;
    std::uint64_t bits = 0x7ff4000000000123; // a signalling NaN
    std::memcpy(&state.saccadeParams.initVel, &bits, sizeof(bits));
    bits = 0xfff8000000000001;
    std::memcpy(&state.blinkParams.minVel, &bits, sizeof(bits));
    state.saccadeParams.minSpeed = -std::numeric_limits<double>::infinity();
    state.saccadeParams.minSlope = -0.0;
    state.saccadeParams.minAmp = std::numeric_limits<double>::denorm_min();
    state.saccadeParams.maxAmp = std::numeric_limits<double>::max();
    state.header.params.minAmp = 0.1 + 0.2;
    state.header.params.maxAmp = 1.0 / 3.0;
    expectRead(textOf(state), state);
}

TEST(EditJournalText, PathsAndParametersCanBeReadByPeople)
{
    SaccadeState state;
    state.saccadeFile = QStringLiteral("/home/u\u017cytkownik/a b.sacc");
    state.header.comment = "two words";
    state.saccadeParams = {1, 2, 3, 4, 5.5, 6.25, -7.0, 8.0, 0.0};
    const QByteArray text = textOf(state);
    EXPECT_TRUE(text.startsWith(lineOf("kiromanager unsaved edits 1")));
    EXPECT_TRUE(text.contains(lineOf("saccadeFile /home/u\xc5\xbcytkownik/a b.sacc")));
    EXPECT_TRUE(text.contains(lineOf("header.comment two words")));
    EXPECT_TRUE(text.contains(lineOf("saccadeParams 1 2 3 4 5.5 6.25 -7 8 0")));
    EXPECT_TRUE(text.endsWith(lineOf("edit 0 current 0 at 0 removed 0 added 0 ")));
}

TEST(EditJournalText, HeaderLineIsASaccadeFile)
{
    StateDice dice(6);
    const SaccadeState state = dice.anyState(2);
    KiroSaccHeader wanted = state.header;
    wanted.blinks.assign(state.blinks.begin(), state.blinks.end());
    EXPECT_TRUE(
        textOf(state).contains(lineOf("header " + QByteArray::fromStdString(wanted.toBytes()).toBase64())));
}

TEST(EditJournalText, EditsAreMadeInTurn)
{
    const Edited edited(20);
    for (std::size_t i = 0; i <= 20; ++i)
        expectRead(edited.text.left(edited.lineEnds[i]), edited.states[i]);
}

TEST(EditJournalText, TornLastLineLosesThatLineOnly)
{
    const Edited edited(3);
    for (int size = edited.lineEnds[2]; size < edited.lineEnds[3]; ++size) {
        std::string problem;
        ASSERT_TRUE(readAs(edited.text.left(size), &problem) == bitsOf(edited.states[2])) << size;
        ASSERT_EQ(problem, "") << size;
    }
}

TEST(EditJournalText, TextThatEndsAheadOfTheEditsIsNotRead)
{
    const Edited edited(1);
    for (int size = 0; size < edited.lineEnds[0]; size += 41)
        ASSERT_EQ(readAs(edited.text.left(size)), "unreadable") << size;
    EXPECT_EQ(readAs(edited.text.left(edited.lineEnds[0] - 1)), "unreadable");
}

TEST(EditJournalText, BrokenLineEndsTheEditsThere)
{
    const Edited edited(3);
    for (int at = edited.lineEnds[1]; at < edited.lineEnds[2]; ++at) {
        for (const char byte : {'\n', '\0', '#', 'x'}) {
            QByteArray text = edited.text;
            if (text[at] == byte)
                continue;
            text[at] = byte;
            std::string problem;
            ASSERT_TRUE(readAs(text, &problem) == bitsOf(edited.states[1])) << at;
            // The lines of the head are 13, the first edit and the one behind are two more.
            ASSERT_EQ(problem, "line 16 cannot be read") << at;
        }
    }
}

TEST(EditJournalText, BrokenHeadIsNotRead)
{
    const Edited edited(1);
    for (int at = 0; at < edited.lineEnds[0]; at += 23) {
        QByteArray text = edited.text;
        text[at] = char(text[at] ^ 4);
        ASSERT_EQ(readAs(text), "unreadable") << at;
    }
}

TEST(EditJournalText, LinesOfTheHeadCannotBeLeftOutOrSwapped)
{
    QList<QByteArray> lines = textOf(SaccadeState()).split('\n');
    ASSERT_EQ(lines.size(), 15); // the last one is empty
    for (int i = 0; i < 13; ++i) {
        QList<QByteArray> fewer = lines;
        fewer.removeAt(i);
        EXPECT_EQ(readAs(fewer.join('\n')), "unreadable") << i;
        QList<QByteArray> swapped = lines;
        swapped.swapItemsAt(i, i + 1);
        EXPECT_EQ(readAs(swapped.join('\n')), "unreadable") << i;
    }
}

TEST(EditJournalText, LineThatIsLeftOutOrRepeatedEndsTheEdits)
{
    const Edited edited(3);
    const auto lineAt = [&](std::size_t i) {
        return edited.text.mid(edited.lineEnds[i - 1], edited.lineEnds[i] - edited.lineEnds[i - 1]);
    };
    const QByteArray start = edited.text.left(edited.lineEnds[0]);
    EXPECT_TRUE(readAs(start + lineAt(2)) == bitsOf(edited.states[0]));
    EXPECT_TRUE(readAs(start + lineAt(1) + lineAt(3)) == bitsOf(edited.states[1]));
    EXPECT_TRUE(readAs(start + lineAt(1) + lineAt(1) + lineAt(2)) == bitsOf(edited.states[1]));
}

TEST(EditJournalText, EditsThatDoNotFitAreNotMade)
{
    const std::string wanted = bitsOf(Edited(0).states[0]);
    const QByteArray record = QByteArray(325, '\1').toBase64();
    const QByteArray refused[] = {
        "edit 1 current 0 at 0 removed 4 added 0 ",
        "edit 1 current 0 at 4 removed 0 added 0 ",
        "edit 1 current 0 at 3 removed 1 added 0 ",
        "edit 1 current 0 at -1 removed 0 added 0 ",
        "edit 1 current 0 at 0 removed -1 added 0 ",
        "edit 1 current 0 at 2147483647 removed 2147483647 added 0 ",
        "edit 1 current 0 at 99999999999 removed 0 added 0 ",
        "edit 1 current x at 0 removed 0 added 0 ",
        "edit 1 current 0 at 0 removed 0 added 1 ",
        "edit 1 current 0 at 0 removed 0 added 2 " + record,
        "edit 1 current 0 at 0 removed 0 added -1 " + record,
        "edit 1 current 0 at 0 removed 0 added 1 " + record.left(400),
        "edit 1 current 0 at 0 removed 0 added 1 " + record + " ",
        "edit 1 current 0 at 0 removed 0 added 1 *" + record.mid(1),
        "edit 1 current 0 at 0 removed 0 added 0",
        "edit 0 current 0 at 0 removed 0 added 0 ",
        "edit 2 current 0 at 0 removed 0 added 0 ",
        "tide 1 current 0 at 0 removed 0 added 0 ",
        "edit 1 at 0 current 0 removed 0 added 0 ",
        "saccadeFile /another/file.sacc",
        "",
    };
    for (const QByteArray& content : refused) {
        std::string problem;
        EXPECT_TRUE(readAs(withLine(content), &problem) == wanted) << content.toStdString();
        EXPECT_EQ(problem, "line 15 cannot be read") << content.toStdString();
    }
    // So that it is not for some other reason:
    EXPECT_FALSE(readAs(withLine("edit 1 current 0 at 0 removed 3 added 1 " + record)) == wanted);
}

TEST(EditJournalText, CurrentSaccadeIsHeldWithinTheList)
{
    const auto currentOf = [](const QByteArray& current, int removed) {
        SaccadeState state;
        QString problem;
        EXPECT_TRUE(EditJournalText::read(withLine("edit 1 current " + current + " at 0 removed " +
                                                   QByteArray::number(removed) + " added 0 "),
                                          state, problem));
        return state.currentSaccade;
    };
    EXPECT_EQ(currentOf("2", 0), 2);
    EXPECT_EQ(currentOf("3", 0), 2);
    EXPECT_EQ(currentOf("-1", 0), -1);
    EXPECT_EQ(currentOf("-2147483648", 0), -1);
    EXPECT_EQ(currentOf("2147483647", 3), 0);
    EXPECT_EQ(currentOf("-1", 3), -1);
}

TEST(EditJournalText, EditsBeyondTheirLimitAreNotMade)
{
    QByteArray text = textOf(SaccadeState());
    const KiroSaccade saccade;
    SaccadeSplice splice;
    splice.after = {saccade};
    for (int i = 1; i <= EditJournalText::MostEdits + 5; ++i)
        text += EditJournalText::edit(i, splice, 0);
    SaccadeState state;
    QString problem;
    EXPECT_TRUE(EditJournalText::read(text, state, problem));
    EXPECT_EQ(state.saccades.size(), EditJournalText::MostEdits);
    EXPECT_EQ(problem, QStringLiteral("line 1015 cannot be read"));
}

TEST(EditJournalText, HeadThatSaysNonsenseIsNotRead)
{
    SaccadeState sound;
    sound.saccadeFile = QStringLiteral("x");
    const QByteArray whole = QByteArray::fromStdString(sound.header.toBytes());
    const QByteArray text = textOf(sound);
    const auto replaced = [&](const QByteArray& name, const QByteArray& value) {
        QByteArray result;
        for (const QByteArray& row : text.split('\n')) {
            if (row.startsWith(name + ' '))
                result += lineOf(name + ' ' + value);
            else if (!row.isEmpty())
                result += row + '\n';
        }
        return result;
    };
    EXPECT_TRUE(readAs(replaced("saccadeFile", "x")) == bitsOf(sound));
    EXPECT_TRUE(readAs(replaced("header", whole.toBase64())) == bitsOf(sound));
    for (const QByteArray value : {"%", "%1", "%123", "%zzzz", "a%00"})
        EXPECT_EQ(readAs(replaced("saccadeFile", value)), "unreadable") << value.toStdString();
    for (const QByteArray value :
         {"", "1 2 3", "1 2 3 4 5 6 7 8 x", "1 2 3 4 5 6 7 8 9 10", "1.5 2 3 4 5 6 7 8 9",
          "1 2 3 4 5 6 7 8 0xg", "99999999999 2 3 4 5 6 7 8 9"})
        EXPECT_EQ(readAs(replaced("saccadeParams", value)), "unreadable") << value.toStdString();
    for (const QByteArray value : {"", "-1", "4294967296", "x"})
        EXPECT_EQ(readAs(replaced("header.version", value)), "unreadable") << value.toStdString();
    QByteArray manyBlinks = whole;
    manyBlinks.replace(16401, 4, "\xff\xff\xff\xff", 4);
    QByteArray oneBlink = whole;
    oneBlink[16404] = 1;
    for (const QByteArray& bytes :
         {QByteArray(), whole.left(100), whole.left(whole.size() - 1), manyBlinks, oneBlink})
        EXPECT_EQ(readAs(replaced("header", bytes.toBase64())), "unreadable") << bytes.size();
    EXPECT_EQ(readAs(replaced("header", "*")), "unreadable");
}

TEST(EditJournalText, OtherFilesAreNotRead)
{
    for (const QByteArray& text :
         {QByteArray(), QByteArray("\n"), QByteArray(1000, '\n'), QByteArray(1000000, 'x'),
          QByteArray(1000, '\0'), lineOf("kiromanager unsaved edits 2"),
          lineOf("kiromanager unsaved edits 1"), lineOf(""), QByteArray("kiromanager unsaved edits 1\n")})
        EXPECT_EQ(readAs(text), "unreadable") << text.size();
}

TEST(EditJournalText, DamageNeverGivesAStateThatNeverWas)
{
    Edited edited(10);
    std::vector<std::string> known = {"unreadable"};
    for (const SaccadeState& state : edited.states)
        known.push_back(bitsOf(state));
    // The head is long, and its damage is looked at elsewhere.
    const int start = edited.lineEnds[0] - 2000;
    for (int run = 0; run < 1000; ++run) {
        QByteArray text = edited.text;
        for (int i = 1 + edited.dice.below(3); i > 0; --i) {
            const int at = start + edited.dice.below(text.size() - start);
            const int count = edited.dice.below(500);
            switch (edited.dice.below(4)) {
            case 0:
                text[at] = char(edited.dice.below(256));
                break;
            case 1:
                text.remove(at, count);
                break;
            case 2:
                text.insert(at, text.mid(start + edited.dice.below(text.size() - start), count));
                break;
            default:
                text.truncate(at);
                break;
            }
            if (text.size() <= start)
                break;
        }
        ASSERT_NE(std::find(known.begin(), known.end(), readAs(text)), known.end()) << run;
    }
}

TEST(EditJournalText, PathsAreReadWithoutTheRest)
{
    SaccadeState state;
    state.saccadeFile = QStringLiteral("/a%b.sacc");
    state.dataFile = QStringLiteral("/c d.kiro");
    const QByteArray text = EditJournalText::head(state);
    QString saccadeFile;
    QString dataFile;
    EXPECT_TRUE(EditJournalText::readPaths(text.left(text.size() / 2), saccadeFile, dataFile));
    EXPECT_EQ(saccadeFile, state.saccadeFile);
    EXPECT_EQ(dataFile, state.dataFile);
    EXPECT_FALSE(EditJournalText::readPaths(text.left(60), saccadeFile, dataFile));
    EXPECT_EQ(dataFile, state.dataFile);
}
