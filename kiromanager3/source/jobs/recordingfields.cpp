#include "recordingfields.h"

#include "kirofile.h"
#include "kiroheader.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

using Id = RecordingField::Id;

namespace
{

using RecordingLayout::EndRows;
using RecordingLayout::Form;
using RecordingLayout::HeaderRows;
using RecordingLayout::LegacyRows;
using RecordingLayout::Row;
using RecordingLayout::SignalRows;
namespace Since = RecordingLayout::Since;

constexpr unsigned char FirstOfLegacyMark = RecordingLayout::LegacyMark & 0xff;
constexpr std::int64_t LengthSize = 4; // in front of a text of its own length

/// Walks over a file and collects its fields. Each step is false once the file has ended.
class Walk
{
public:
    explicit Walk(KiroFile& file)
        : m_file(file)
        , m_fileSize(file.size())
    {
    }

    RecordingFields takeResult() { return std::move(m_result); }

    void header()
    {
        std::uint8_t first = 0;
        m_file.seek(0);
        m_file.readU8(first);
        if (first == FirstOfLegacyMark) {
            m_result.version = KiroHeader::LegacyVersion;
            rows(LegacyRows, -1);
        } else {
            m_result.version = KiroHeader::CurrentVersion; // until it is read
            rows(HeaderRows, -1) && signalTable() && rows(EndRows, -1);
        }
    }

private:
    bool signalTable()
    {
        const auto count = static_cast<int>(m_result.fields.back().number());
        for (int i = 0; i < count; ++i) {
            if (!rows(SignalRows, i))
                return false;
        }
        return true;
    }

    template <std::size_t Count>
    bool rows(const Row (&table)[Count], int signal)
    {
        return std::all_of(std::begin(table), std::end(table), [&](const Row& row) {
            return row.since > m_result.version || field(row, signal);
        });
    }

    bool field(const Row& row, int signal)
    {
        RecordingField field;
        field.id = row.field;
        field.signal = signal;
        field.offset = m_position;
        field.bigEndian = m_result.version != KiroHeader::LegacyVersion;
        field.size = width(row);
        if (field.size <= m_fileSize - m_position)
            readBytes(field);
        if (row.field == Id::Version && !field.bytes.empty())
            m_result.version = static_cast<std::uint32_t>(field.number());
        if (hasOwnLength(row) && !field.bytes.empty() && field.number() != RecordingLayout::NoText)
            field.size += static_cast<std::int64_t>(field.number());
        return take(std::move(field));
    }

    bool hasOwnLength(const Row& row) const
    {
        return row.form == Form::Text && m_result.version < Since::FixedTexts;
    }
    std::int64_t width(const Row& row) const
    {
        if (row.form == Form::NarrowOrWide && m_result.version < Since::WideSignalNumbers)
            return 1;
        return hasOwnLength(row) ? LengthSize : row.width;
    }

    void readBytes(RecordingField& field)
    {
        field.bytes.resize(static_cast<std::size_t>(field.size));
        m_file.seek(static_cast<std::int32_t>(m_position));
        m_file.readRaw(field.bytes.data(), static_cast<std::int32_t>(field.size));
    }

    bool take(RecordingField field)
    {
        if (field.size > m_fileSize - m_position) {
            m_result.cutField = std::move(field);
            return false;
        }
        m_position += field.size;
        m_result.fields.push_back(std::move(field));
        return true;
    }

    KiroFile& m_file;
    std::int64_t m_fileSize;
    std::int64_t m_position = 0;
    RecordingFields m_result;
};

} // namespace

std::uint64_t RecordingField::number() const
{
    std::uint64_t result = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char byte = bytes[bigEndian ? i : bytes.size() - 1 - i];
        result = result << 8 | static_cast<unsigned char>(byte);
    }
    return result;
}

double RecordingField::real() const
{
    const std::uint64_t bits = number();
    double result;
    std::memcpy(&result, &bits, sizeof(result));
    return result;
}

RecordingFields RecordingFields::read(KiroFile& file)
{
    Walk walk(file);
    walk.header();
    return walk.takeResult();
}

const RecordingField* RecordingFields::find(Id id, int signal) const
{
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const RecordingField& field) {
        return field.id == id && field.signal == signal;
    });
    return found == fields.end() ? nullptr : &*found;
}
