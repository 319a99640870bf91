#include "texttable.h"

#include <QString>
#include <QVector>

#include <algorithm>

namespace
{

constexpr std::size_t ColumnGap = 2;

std::size_t characters(const std::string& text)
{
    return static_cast<std::size_t>(
        QString::fromLocal8Bit(text.data(), static_cast<int>(text.size())).toUcs4().size());
}

std::string withoutTrailingBlanks(std::string line)
{
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

} // namespace

std::string printable(std::string text)
{
    const auto isControl = [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return (code < 0x20 && c != '\n') || code == 0x7f;
    };
    std::replace_if(text.begin(), text.end(), isControl, '?');
    return text;
}

std::string printableBytes(const QString& text)
{
    return printable(text.toLocal8Bit().toStdString());
}

TextTable::TextTable(std::initializer_list<Align> columns)
    : m_columns(columns)
{
}

void TextTable::addRow(std::vector<std::string> cells)
{
    for (std::string& cell : cells) {
        cell = printable(std::move(cell));
        std::replace(cell.begin(), cell.end(), '\n', '?');
    }
    cells.resize(m_columns.size());
    m_rows.push_back(std::move(cells));
}

std::string TextTable::text(int indent) const
{
    std::vector<std::size_t> widths(m_columns.size());
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], characters(row[i]));
    }
    std::string result;
    for (const auto& row : m_rows) {
        std::string line(static_cast<std::size_t>(indent), ' ');
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string padding(widths[i] - characters(row[i]), ' ');
            line.append(i > 0 ? ColumnGap : 0, ' ');
            line += m_columns[i] == Align::Right ? padding + row[i] : row[i] + padding;
        }
        result += withoutTrailingBlanks(std::move(line)) + '\n';
    }
    return result;
}
