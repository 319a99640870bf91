#include "signalscommand.h"

#include "commandline.h"
#include "headerjson.h"
#include "kiroreader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "texttable.h"

#include <QJsonDocument>

namespace
{

constexpr const char* Details = "The first column is the index that 'kirobatch dump --signal' takes.";

constexpr const char* JsonDescription =
    "Prints one JSON array (UTF-8) with an object for each signal. Texts of the recording are given byte "
    "for byte, each byte as the character of that Latin-1 code. Numbers that are not finite, and integers "
    "from 2^53 on, are strings.";

constexpr int FrequencyDecimals = 3;
constexpr int CalibrationDigits = 6;

std::string signalTable(const KiroHeader& header)
{
    using Align = TextTable::Align;
    TextTable table{Align::Right, Align::Left, Align::Left, Align::Right, Align::Right,
                    Align::Right, Align::Left, Align::Left, Align::Right, Align::Right};
    table.addRow({"Index", "Full name", "Short name", "Freq. [Hz]", "Samples/Packet", "Sample size [B]",
                  "Sample type", "Calib. unit", "Calib. factor", "Calib. offset"});
    int index = 0;
    for (const KiroSignal& signal : header.signalTable()) {
        table.addRow({std::to_string(index++), signal.fullName.bytes(), signal.shortName.bytes(),
                      fixedText(signal.frequency(), FrequencyDecimals),
                      std::to_string(signal.samplesPerFrame), std::to_string(signal.sampleSize),
                      KiroValue::typeName(signal.valueType), signal.calibrationUnit.bytes(),
                      generalText(signal.calibrationFactor, CalibrationDigits),
                      generalText(signal.calibrationOffset, CalibrationDigits)});
    }
    return table.text();
}

} // namespace

Outcome runSignals(const QStringList& arguments)
{
    CommandLine line("signals", "Prints the table of a recording's signals.", Details);
    line.addFlag("json", JsonDescription);
    if (const auto over = line.parse(arguments))
        return *over;

    KiroReader reader;
    std::string error;
    if (!openRecording(line.file(), reader, error))
        return Outcome::failed(error);

    Output output;
    if (line.isSet("json"))
        output.write(QJsonDocument(signalsToJson(reader.header())).toJson().toStdString());
    else
        output.write(signalTable(reader.header()));
    return output.finish();
}
