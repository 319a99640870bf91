#include "recordingfields.h"

#include "recording.h"
#include "recordingsummary.h"

#include <QJsonArray>
#include <QJsonObject>

namespace
{

constexpr int HighestFieldId = 64;

/// An answer of KiroHeader that is a text or a number.
template <auto Getter>
Verdict headerText(Recording& recording, const QJsonValue& wanted)
{
    return compareText(wanted, (recording.header().*Getter)().bytes());
}

template <auto Getter>
Verdict headerNumber(Recording& recording, const QJsonValue& wanted)
{
    return compareNumber(wanted, toNumber((recording.header().*Getter)()));
}

Verdict checkByteOrder(Recording& recording, const QJsonValue& wanted)
{
    return compareText(wanted, recording.byteOrder() == KiroFile::ByteOrder::BigEndian ? "big" : "little");
}

Verdict checkTrueFields(Recording& recording, const QJsonValue& wanted)
{
    std::vector<Number> ids;
    for (int id = 0; id <= HighestFieldId; ++id) {
        if (recording.header().hasField(id))
            ids.push_back(toNumber(id));
    }
    return compareNumbers(wanted, ids);
}

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator)
            parts.emplace_back();
        else
            parts.back().push_back(c);
    }
    return parts;
}

/// Name and value, empty without a tab; what stands behind a second tab has no column.
std::vector<std::vector<std::string>> technicalRows(const std::string& text)
{
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line : split(text, '\n')) {
        if (line.empty())
            continue;
        std::vector<std::string> row = split(line, '\t');
        row.resize(2);
        rows.push_back(row);
    }
    return rows;
}

Verdict checkTechnicalRows(Recording& recording, const QJsonValue& wanted)
{
    const auto rows = technicalRows(recording.header().technicalParameters().bytes());
    const QJsonArray wantedRows = wanted.toArray();
    if (!wanted.isArray() || static_cast<std::size_t>(wantedRows.size()) != rows.size())
        return {{QString(), shown(wanted), QStringLiteral("%1 rows").arg(rows.size())}};
    Verdict verdict;
    for (int row = 0; row < wantedRows.size(); ++row) {
        const QJsonArray wantedRow = wantedRows[row].toArray();
        if (wantedRow.size() != 2)
            verdict.push_back(
                {QStringLiteral("[%1]").arg(row), shown(wantedRows[row]), QStringLiteral("2 cells")});
        for (int cell = 0; wantedRow.size() == 2 && cell < 2; ++cell) {
            const std::string& text = rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(cell)];
            append(verdict,
                   at(QStringLiteral("[%1][%2]").arg(row).arg(cell), compareText(wantedRow[cell], text)));
        }
    }
    return verdict;
}

/// A text that the file browser shows; none stands for null.
Verdict compareShown(const QJsonValue& wanted, const QString& found)
{
    if (wanted.isNull() ? found.isEmpty() : wanted.isString() && wanted.toString() == found)
        return {};
    return {{QString(), shown(wanted), shown(QJsonValue(found))}};
}

/// The locale of a process whose system locale is "C": it groups thousands, unlike QLocale::c().
QLocale plainLocale()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::DefaultNumberOptions);
    return locale;
}

Verdict checkShownDuration(Recording& recording, const QJsonValue& wanted)
{
    return compareShown(wanted, RecordingSummary::of(recording.header(), plainLocale()).totalTime);
}

Verdict checkShownDate(Recording& recording, const QJsonValue& wanted)
{
    return compareShown(wanted, RecordingSummary::of(recording.header(), plainLocale()).date);
}

Verdict checkReadableFrames(Recording& recording, const QJsonValue& wanted)
{
    return compareNumber(wanted, toNumber(recording.readableFrames()));
}

Verdict checkIntegrity(Recording& recording, const QJsonValue& wanted)
{
    return compareBool(wanted, recording.reader().checkIntegrity());
}

struct HeaderField
{
    const char* key;
    HeaderFieldCheck check;
};

constexpr HeaderField HeaderFields[] = {
    {"version", headerNumber<&KiroHeader::version>},
    {"byteOrder", checkByteOrder},
    {"storingProgram", headerText<&KiroHeader::storingProgram>},
    {"notes", headerText<&KiroHeader::notes>},
    {"technicalParameters", headerText<&KiroHeader::technicalParameters>},
    {"day", headerNumber<&KiroHeader::day>},
    {"month", headerNumber<&KiroHeader::month>},
    {"year", headerNumber<&KiroHeader::year>},
    {"hour", headerNumber<&KiroHeader::hour>},
    {"minute", headerNumber<&KiroHeader::minute>},
    {"second", headerNumber<&KiroHeader::second>},
    {"millisecond", headerNumber<&KiroHeader::millisecond>},
    {"dateString", headerText<&KiroHeader::dateString>},
    {"timeString", headerText<&KiroHeader::timeString>},
    {"frameCount", headerNumber<&KiroHeader::frameCount>},
    {"headerSize", headerNumber<&KiroHeader::headerSize>},
    {"frameSize", headerNumber<&KiroHeader::frameSize>},
    {"frameFrequency", headerNumber<&KiroHeader::frameFrequency>},
    {"frameMSecs", headerNumber<&KiroHeader::frameMSecs>},
    {"trueFields", checkTrueFields},
    {"technicalRows", checkTechnicalRows},
    {"shownDuration", checkShownDuration},
    {"shownDateC", checkShownDate},
    {"readableFrames", checkReadableFrames},
    {"checkIntegrity", checkIntegrity},
};

const KiroSignal& descriptor(const Recording& recording, int signal)
{
    return recording.header().signalTable().at(static_cast<std::size_t>(signal));
}

/// A text or a number of the descriptor.
template <auto Member>
Verdict signalText(Recording& recording, int signal, const QJsonValue& wanted)
{
    return compareText(wanted, (descriptor(recording, signal).*Member).bytes());
}

template <auto Member>
Verdict signalNumber(Recording& recording, int signal, const QJsonValue& wanted)
{
    return compareNumber(wanted, toNumber(descriptor(recording, signal).*Member));
}

/// A number that KiroHeader works out for a signal.
template <auto Getter>
Verdict signalAnswer(Recording& recording, int signal, const QJsonValue& wanted)
{
    return compareNumber(wanted, toNumber((recording.header().*Getter)(signal)));
}

Verdict checkValueType(Recording& recording, int signal, const QJsonValue& wanted)
{
    const KiroValue::Type type = descriptor(recording, signal).valueType;
    if (type == KiroValue::Unknown)
        return compareText(wanted, "unknown");
    return compareNumber(wanted, toNumber(static_cast<int>(type)));
}

Verdict checkValueTypeName(Recording& recording, int signal, const QJsonValue& wanted)
{
    return compareText(wanted, KiroValue::typeName(descriptor(recording, signal).valueType));
}

Verdict checkCalibrated(Recording& recording, int signal, const QJsonValue& wanted)
{
    return compareBool(wanted, descriptor(recording, signal).calibrated);
}

/// Frequency, factor and offset as the signal table shows them in each of the locales named.
Verdict checkShownNumbers(Recording& recording, int signal, const QJsonValue& wanted)
{
    const QJsonObject locales = wanted.toObject();
    Verdict verdict;
    for (auto locale = locales.begin(); locale != locales.end(); ++locale) {
        const bool plain = locale.key() == QLatin1String("C");
        const auto summary =
            RecordingSummary::of(recording.header(), plain ? plainLocale() : QLocale(locale.key()));
        const QStringList& row = summary.signalRows.at(signal);
        const QJsonArray found{row[RecordingSummary::Frequency], row[RecordingSummary::CalibrationFactor],
                               row[RecordingSummary::CalibrationOffset]};
        if (locale.value() != QJsonValue(found))
            verdict.push_back(
                {QLatin1Char('.') + locale.key(), shown(locale.value()), shown(QJsonValue(found))});
    }
    if (locales.isEmpty())
        verdict.push_back({QString(), shown(wanted), QStringLiteral("texts by locale")});
    return verdict;
}

struct SignalField
{
    const char* key;
    SignalFieldCheck check;
};

constexpr SignalField SignalFields[] = {
    {"fullName", signalText<&KiroSignal::fullName>},
    {"shortName", signalText<&KiroSignal::shortName>},
    {"ratePeriod", signalNumber<&KiroSignal::ratePeriod>},
    {"samplesPerPeriod", signalNumber<&KiroSignal::samplesPerPeriod>},
    {"valueType", checkValueType},
    {"valueTypeName", checkValueTypeName},
    {"samplesPerFrame", signalNumber<&KiroSignal::samplesPerFrame>},
    {"sampleSize", signalNumber<&KiroSignal::sampleSize>},
    {"calibrated", checkCalibrated},
    {"calibrationFactor", signalNumber<&KiroSignal::calibrationFactor>},
    {"calibrationOffset", signalNumber<&KiroSignal::calibrationOffset>},
    {"calibrationUnit", signalText<&KiroSignal::calibrationUnit>},
    {"frequency", signalAnswer<&KiroHeader::signalFrequency>},
    {"mSecs", signalAnswer<&KiroHeader::signalMSecs>},
    {"sampleCount", signalAnswer<&KiroHeader::signalSampleCount>},
    {"shown", checkShownNumbers},
    {"first", checkFirstSamples},
    {"last", checkLastSamples},
};

template <class Fields>
auto findCheck(const Fields& fields, const QString& key) -> decltype(fields[0].check)
{
    for (const auto& field : fields) {
        if (key == QLatin1String(field.key))
            return field.check;
    }
    return nullptr;
}

} // namespace

HeaderFieldCheck headerFieldCheck(const QString& key)
{
    return findCheck(HeaderFields, key);
}

SignalFieldCheck signalFieldCheck(const QString& key)
{
    return findCheck(SignalFields, key);
}
