#pragma once

#include <initializer_list>
#include <string>
#include <vector>

class QString;

/// `text` with every control character but line feeds shown as "?": a text from a file must neither
/// upset a terminal nor the lines it stands in. Other bytes stay as they are.
std::string printable(std::string text);
/// The same of a text of the program, in the local 8-bit encoding.
std::string printableBytes(const QString& text);

/// Rows of cells, laid out in aligned columns for a terminal.
///
/// Cells are in the local 8-bit encoding and are padded by characters, not bytes. Columns are two blanks
/// apart; no line ends in a blank.
class TextTable
{
public:
    enum class Align { Left, Right };

    explicit TextTable(std::initializer_list<Align> columns);

    /// A cell for each column. Line feeds and control characters within a cell become "?".
    void addRow(std::vector<std::string> cells);
    /// All lines, each begun by `indent` blanks and ended by a line feed.
    std::string text(int indent = 0) const;

private:
    std::vector<Align> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};
