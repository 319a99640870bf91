#pragma once

#include "sacclayout.h"

#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

/// Moves records of one version between memory and the bytes of a saccade file.
///
/// Rows that stand side by side in the file and in memory are taken together in runs: number by number a file
/// of many records would take several times as long.
template <class Record>
class SaccRecords
{
public:
    /// `rows` is the table of the record's numbers in all versions.
    template <std::size_t Count>
    SaccRecords(const SaccLayout::NumberRow<Record> (&rows)[Count], std::uint32_t version)
    {
        for (const auto& row : rows) {
            if (row.isIn(version))
                add(runOf(row));
        }
    }

    /// How many of the first `bytes` bytes of a record, or of several in a row, belong to whole numbers.
    std::int64_t wholeNumbers(std::int64_t bytes) const
    {
        std::int64_t whole = 0;
        for (;;) {
            for (const Run& run : m_runs) {
                const auto count = std::min<std::int64_t>((bytes - whole) / run.width, run.count);
                whole += count * run.width;
                if (count < run.count)
                    return whole;
            }
        }
    }

    /// Reads one record and moves `bytes` behind it.
    void read(const char*& bytes, Record& record) const
    {
        for (const Run& run : m_runs) {
            char* const target = reinterpret_cast<char*>(&record) + run.place;
            if (run.kind == Kind::Integers)
                swapAll<quint32>(bytes, run.count, target);
            else if (run.kind == Kind::Reals && run.form == Form::F64)
                swapAll<quint64>(bytes, run.count, target);
            else if (run.kind == Kind::Reals && run.form == Form::I32)
                widenAll<qint32>(bytes, run.count, target);
            else if (run.kind == Kind::Reals)
                widenAll<quint32>(bytes, run.count, target);
            bytes += run.count * run.width;
        }
    }

    /// Appends a record. Only of the last version, which has nothing to be narrowed or ignored.
    void append(std::string& bytes, const Record& record) const
    {
        for (const Run& run : m_runs) {
            const char* const source = reinterpret_cast<const char*>(&record) + run.place;
            const std::size_t end = bytes.size();
            bytes.resize(end + run.count * run.width);
            // Swapping is its own reverse.
            if (run.kind == Kind::Integers)
                swapAll<quint32>(source, run.count, &bytes[end]);
            else
                swapAll<quint64>(source, run.count, &bytes[end]);
        }
    }

private:
    static_assert(std::is_standard_layout_v<Record>);
    using Form = SaccLayout::Form;

    /// What numbers are in memory.
    enum class Kind { Integers, Reals, Ignored };

    struct Run
    {
        Kind kind;
        Form form;
        std::size_t place; ///< of the first number, in bytes from the start of the record
        std::uint32_t count;
        std::ptrdiff_t width; ///< of one number in the file

        bool isContinuedBy(const Run& next) const
        {
            const std::size_t size = kind == Kind::Integers ? sizeof(std::int32_t) : sizeof(double);
            return kind == next.kind && form == next.form &&
                   (kind == Kind::Ignored || next.place == place + count * size);
        }
    };

    static Run runOf(const SaccLayout::NumberRow<Record>& row)
    {
        const Record record;
        const auto placeOf = [&record](const auto& member) {
            return static_cast<std::size_t>(reinterpret_cast<const char*>(&member) -
                                            reinterpret_cast<const char*>(&record));
        };
        if (row.integer)
            return {Kind::Integers, row.form, placeOf(record.*row.integer), 1, row.width()};
        if (row.real)
            return {Kind::Reals, row.form, placeOf(record.*row.real), 1, row.width()};
        return {Kind::Ignored, row.form, 0, 1, row.width()};
    }

    void add(const Run& run)
    {
        if (!m_runs.empty() && m_runs.back().isContinuedBy(run))
            ++m_runs.back().count;
        else
            m_runs.push_back(run);
    }

    template <class Bits>
    static void swapAll(const char* from, std::uint32_t count, char* to)
    {
        for (std::size_t i = 0; i < count; ++i) {
            const Bits value = qFromBigEndian<Bits>(from + i * sizeof(Bits));
            std::memcpy(to + i * sizeof(Bits), &value, sizeof(Bits));
        }
    }

    template <class Stored>
    static void widenAll(const char* from, std::uint32_t count, char* to)
    {
        for (std::size_t i = 0; i < count; ++i) {
            const double real = qFromBigEndian<Stored>(from + i * sizeof(Stored));
            std::memcpy(to + i * sizeof(real), &real, sizeof(real));
        }
    }

    std::vector<Run> m_runs;
};
