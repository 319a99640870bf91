#include "recordingbuilder.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

std::string bigEndian(std::uint64_t value, int bytes)
{
    std::string result = littleEndian(value, bytes);
    std::reverse(result.begin(), result.end());
    return result;
}

std::string littleEndian(std::uint64_t value, int bytes)
{
    std::string result;
    for (int i = 0; i < bytes; ++i)
        result.push_back(static_cast<char>(value >> (8 * i) & 0xff));
    return result;
}

ByteBuilder& ByteBuilder::f64(double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof(bits));
    return raw(bigEndian(bits, 8));
}

ByteBuilder& ByteBuilder::fixed(const std::string& text, std::size_t width)
{
    std::string padded = text;
    padded.resize(width, '\0');
    return raw(padded);
}

ByteBuilder& ByteBuilder::wide(const std::string& text)
{
    u32(2 * text.size());
    for (const char c : text)
        u16(static_cast<unsigned char>(c));
    return *this;
}

ByteBuilder& ByteBuilder::raw(const std::string& bytes)
{
    m_bytes += bytes;
    return *this;
}

KiroSignal makeSignal(const char* name, KiroValue::Type type, std::uint32_t size,
                      std::uint32_t samplesPerFrame, std::uint32_t samplesPerPeriod)
{
    KiroSignal signal;
    signal.fullName = name;
    signal.shortName = name;
    signal.samplesPerPeriod = samplesPerPeriod;
    signal.valueType = type;
    signal.sampleSize = size;
    signal.samplesPerFrame = samplesPerFrame;
    return signal;
}

KiroString TestFolder::write(const QString& name, const std::string& bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(bytes.data(), qint64(bytes.size())) != qint64(bytes.size()))
        ADD_FAILURE() << "cannot write " << path(name).toStdString();
    return KiroString(path(name));
}

std::string fileBytes(const KiroString& path)
{
    QFile file(path.toQString());
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << "cannot read " << path.bytes();
    return file.readAll().toStdString();
}
