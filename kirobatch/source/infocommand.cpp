#include "infocommand.h"

#include "commandline.h"
#include "headerjson.h"
#include "kirobulkreader.h"
#include "kiroreader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "texttable.h"

#include <QJsonDocument>

#include <optional>

namespace
{

constexpr const char* Details =
    "Integrity is ok if the file holds as many whole packets as its header declares;\n"
    "an incomplete packet at the end does no harm.";

constexpr const char* JsonDescription =
    "Prints one JSON object (UTF-8). Texts of the recording are given byte for byte, each byte as the "
    "character of that Latin-1 code. Numbers that are not finite, and integers from 2^53 on, are strings.";

/// What checkIntegrity() found; a value only where frames have bytes.
using Integrity = std::optional<bool>;

/// False with `error` set if the file cannot be read any more.
bool findIntegrity(KiroReader& reader, Integrity& integrity, std::string& error)
{
    if (reader.header().frameSize() == 0)
        return true;
    integrity = reader.checkIntegrity();
    if (*integrity || reader.errorText().isEmpty())
        return true;
    error = "cannot read " + quoted(reader.fileName()) + ": " + reader.errorText().bytes() +
            ". Check that the file is still there.";
    return false;
}

std::string jsonInfo(const KiroReader& reader, Integrity integrity)
{
    QJsonObject object = headerToJson(reader.header());
    // The machine is little-endian, so that swapped samples are big-endian.
    object.insert(QStringLiteral("byteOrder"),
                  reader.swapsBytes() ? QStringLiteral("big") : QStringLiteral("little"));
    object.insert(QStringLiteral("readableFrames"),
                  static_cast<qint64>(KiroBulkReader(reader).readableFrames()));
    object.insert(QStringLiteral("checkIntegrity"), integrity ? QJsonValue(*integrity) : QJsonValue());
    return QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
}

std::string integrityText(const KiroReader& reader, Integrity integrity)
{
    if (!integrity)
        return "not checked, the packets hold no samples";
    if (*integrity)
        return "ok";
    const std::int64_t stored = storedBytes(reader);
    if (stored < 0)
        return "damaged, the file ends inside its header";
    return KiroString("damaged, the header declares %1 packets and the file holds %2")
        .arg(reader.header().frameCount())
        .arg(stored / reader.header().frameSize())
        .bytes();
}

std::string factsText(const KiroReader& reader, Integrity integrity)
{
    const KiroHeader& header = reader.header();
    const auto duration = header.durationMSecs();
    TextTable table{TextTable::Align::Left, TextTable::Align::Left};
    table.addRow({"File:", reader.fileName().bytes()});
    table.addRow({"Format version:", std::to_string(header.version())});
    table.addRow({"Byte order:", reader.swapsBytes() ? "big-endian" : "little-endian"});
    table.addRow({"Storing program:", header.storingProgram().bytes()});
    table.addRow({"Date:", header.dateString().bytes()});
    table.addRow({"Time:", header.timeString().bytes()});
    table.addRow({"Duration:", duration ? durationText(*duration).bytes() : "unknown"});
    table.addRow({"Packets:", std::to_string(header.frameCount())});
    table.addRow({"Header size:", std::to_string(header.headerSize()) + " bytes"});
    table.addRow({"Packet size:", std::to_string(header.frameSize()) + " bytes"});
    table.addRow({"Packet frequency:",
                  header.signalCount() > 0 ? fixedText(header.frameFrequency(), 3) + " Hz" : "unknown"});
    table.addRow({"Signals:", std::to_string(header.signalCount())});
    table.addRow({"Integrity:", integrityText(reader, integrity)});
    return table.text();
}

/// A section of indented lines; nothing if there are no notes.
std::string notesText(const KiroHeader& header)
{
    const KiroString notes = header.notes().trimmedRight();
    if (notes.isEmpty())
        return {};
    TextTable lines{TextTable::Align::Left};
    for (int start = 0; start <= notes.length();) {
        const int lineFeed = notes.indexOf("\n", start);
        const int end = lineFeed < 0 ? notes.length() : lineFeed;
        lines.addRow({notes.mid(start, end - start).trimmedRight().bytes()});
        start = end + 1;
    }
    return "\nNotes:\n" + lines.text(2);
}

/// A section with a line for each parameter; nothing if there are none.
std::string technicalText(const KiroHeader& header)
{
    const auto rows = header.technicalRows();
    if (rows.empty())
        return {};
    TextTable table{TextTable::Align::Left, TextTable::Align::Left};
    for (const auto& [name, value] : rows)
        table.addRow({name.bytes(), value.bytes()});
    return "\nTechnical parameters:\n" + table.text(2);
}

} // namespace

Outcome runInfo(const QStringList& arguments)
{
    CommandLine line("info",
                     "Prints the header of a recording, its technical parameters, duration and\nintegrity.",
                     Details);
    line.addFlag("json", JsonDescription);
    if (const auto over = line.parse(arguments))
        return *over;

    KiroReader reader;
    Integrity integrity;
    std::string error;
    if (!openRecording(line.file(), reader, error) || !findIntegrity(reader, integrity, error))
        return Outcome::failed(error);

    Output output;
    if (line.isSet("json"))
        output.write(jsonInfo(reader, integrity));
    else
        output.write(factsText(reader, integrity) + notesText(reader.header()) +
                     technicalText(reader.header()));
    return output.finish();
}
