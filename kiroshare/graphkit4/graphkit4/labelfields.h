#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>

#include <string_view>

// The fields of a label as the text of a label file (docs/formats/labels.md). What is written is read back
// the same, bit by bit. Reading takes a whole field; it is false, with the result untouched, if the field is
// not of the form. None of it depends on the locale.

/// Shortest decimal text of the number; "inf", "-inf", "nan", and "nan:" with the 16 hex digits of other
/// NaNs.
QByteArray numberField(double number);
bool readField(std::string_view field, double& number);

/// Decimal digits only, 0 to 4294967295.
bool readField(std::string_view field, quint32& number);

/// "#rrggbb", "#aarrggbb", or for what these cannot hold the model and five numbers: see the format page.
QByteArray colorField(const QColor& color);
bool readField(std::string_view field, QColor& color);

/// UTF-8 in double quotes; backslash, quote, characters that would break the line or that no UTF-8 can hold
/// are escaped.
QByteArray textField(const QString& text);
bool readField(std::string_view field, QString& text);
