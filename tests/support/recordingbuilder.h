#pragma once

#include "kiroheader.h"

#include <QString>
#include <QTemporaryDir>

#include <cstdint>
#include <string>
#include <vector>

/// Bytes of a number, most significant first or last.
std::string bigEndian(std::uint64_t value, int bytes);
std::string littleEndian(std::uint64_t value, int bytes);

/// Builds the bytes of a recording by hand, field by field, so that tests do not lean on the code that
/// they test. Fields are given in the file's own order with put calls.
class ByteBuilder
{
public:
    ByteBuilder& u8(std::uint64_t value) { return raw(bigEndian(value, 1)); }
    ByteBuilder& u16(std::uint64_t value) { return raw(bigEndian(value, 2)); }
    ByteBuilder& u32(std::uint64_t value) { return raw(bigEndian(value, 4)); }
    ByteBuilder& f64(double value);
    /// Text padded with zero bytes to `width`.
    ByteBuilder& fixed(const std::string& text, std::size_t width);
    /// Length in bytes, then 16-bit units with a zero high byte.
    ByteBuilder& wide(const std::string& text);
    ByteBuilder& raw(const std::string& bytes);

    const std::string& bytes() const { return m_bytes; }

private:
    std::string m_bytes;
};

/// A signal for recordings of the current version.
KiroSignal makeSignal(const char* name, KiroValue::Type type, std::uint32_t size,
                      std::uint32_t samplesPerFrame, std::uint32_t samplesPerPeriod = 250);

/// A folder that goes away with the test, and files in it.
class TestFolder
{
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// Writes a file and returns its path as the core takes it.
    KiroString write(const QString& name, const std::string& bytes) const;

private:
    QTemporaryDir m_folder;
};

/// Whole content of a file; fails the test if it cannot be read.
std::string fileBytes(const KiroString& path);
