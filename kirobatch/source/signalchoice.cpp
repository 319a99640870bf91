#include "signalchoice.h"

#include "commandline.h"
#include "kiroreader.h"
#include "openrecording.h"

#include <vector>

namespace
{

bool isIndex(const std::string& choice)
{
    return choice.find_first_not_of("0123456789") == std::string::npos;
}

/// `what` is not there: says so, and what there is instead.
std::string noSignalText(const KiroReader& reader, const std::string& what)
{
    const int count = reader.header().signalCount();
    const std::string start =
        "there is no signal " + what + " in " + quoted(reader.fileName()) + ", which has ";
    if (count == 0)
        return start + "no signals at all.";
    return start + std::to_string(count) + (count == 1 ? " signal. " : " signals. ") + signalListHint(reader);
}

std::vector<int> signalsNamed(const KiroHeader& header, KiroString KiroSignal::*name,
                              const KiroString& choice)
{
    std::vector<int> result;
    for (int i = 0; i < header.signalCount(); ++i) {
        if (header.signalTable()[static_cast<std::size_t>(i)].*name == choice)
            result.push_back(i);
    }
    return result;
}

std::string severalSignalsText(const KiroReader& reader, const KiroString& choice,
                               const std::vector<int>& indices)
{
    std::string list;
    for (const int index : indices)
        list += (list.empty() ? "" : ", ") + std::to_string(index);
    return "the name " + quoted(choice) + " belongs to " + std::to_string(indices.size()) + " signals of " +
           quoted(reader.fileName()) + ": " + list + ". Give the index instead.";
}

} // namespace

std::optional<int> chooseSignal(const KiroReader& reader, const std::string& choice, std::string& error)
{
    const KiroHeader& header = reader.header();
    if (isIndex(choice)) {
        const auto index = parseNumber(choice);
        if (index && *index < header.signalCount())
            return static_cast<int>(*index);
        error = noSignalText(reader, "of index " + choice);
        return std::nullopt;
    }
    const KiroString name = KiroString::fromBytes(choice);
    std::vector<int> found = signalsNamed(header, &KiroSignal::fullName, name);
    if (found.empty())
        found = signalsNamed(header, &KiroSignal::shortName, name);
    if (found.size() == 1)
        return found.front();
    error = found.empty() ? noSignalText(reader, "of the name " + quoted(name))
                          : severalSignalsText(reader, name, found);
    return std::nullopt;
}

std::string signalListHint(const KiroReader& reader)
{
    return "To list the signals: kirobatch signals " + quoted(reader.fileName());
}
