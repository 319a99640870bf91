#include "kirofile.h"

#include <algorithm>
#include <cstring>

#include <sys/stat.h>

namespace
{

const char* modeText(int mode)
{
    switch (mode) {
    case KiroFile::Read:
        return "rb";
    case KiroFile::Create:
        return "wb";
    case KiroFile::Update:
        return "r+b";
    default:
        return "a+b";
    }
}

bool isThereButNoRegularFile(const KiroString& name)
{
    struct stat status = {};
    return ::stat(name.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

} // namespace

KiroFile::~KiroFile()
{
    close();
}

bool KiroFile::open(const KiroString& name, int mode)
{
    if (m_stream || isThereButNoRegularFile(name))
        return false;
    m_stream = std::fopen(name.c_str(), modeText(mode));
    if (!m_stream)
        return false;
    m_name = name;
    m_mode = mode;
    return true;
}

bool KiroFile::close()
{
    if (!m_stream)
        return false;
    const bool noErrorBefore = std::ferror(m_stream) == 0;
    const bool closed = std::fclose(m_stream) == 0;
    m_stream = nullptr;
    m_name.clear();
    return noErrorBefore && closed;
}

std::int64_t KiroFile::size() const
{
    struct stat status = {};
    if (!m_stream || ::fstat(fileno(m_stream), &status) != 0)
        return 0;
    return status.st_size;
}

void KiroFile::setByteOrder(ByteOrder order)
{
    m_order = order;
    m_machineOrder = order == MachineOrder;
}

bool KiroFile::seek(std::int32_t offset)
{
    return m_stream && offset >= 0 && std::fseek(m_stream, offset, SEEK_SET) == 0;
}

std::int64_t KiroFile::position() const
{
    return m_stream ? std::ftell(m_stream) : -1;
}

template <class Number>
bool KiroFile::readNumber(Number& value)
{
    static_assert(sizeof(Number) <= sizeof(m_scratch));
    if (!m_stream || std::fread(m_scratch, 1, sizeof(Number), m_stream) != sizeof(Number))
        return false;
    if (!m_machineOrder)
        std::reverse(m_scratch, m_scratch + sizeof(Number));
    std::memcpy(&value, m_scratch, sizeof(Number));
    return true;
}

template <class Number>
bool KiroFile::writeNumber(Number value)
{
    static_assert(sizeof(Number) <= sizeof(m_scratch));
    std::memcpy(m_scratch, &value, sizeof(Number));
    if (!m_machineOrder)
        std::reverse(m_scratch, m_scratch + sizeof(Number));
    return writeRaw(m_scratch, sizeof(Number)) == sizeof(Number);
}

bool KiroFile::readU8(std::uint8_t& value)
{
    return readNumber(value);
}

bool KiroFile::readU16(std::uint16_t& value)
{
    return readNumber(value);
}

bool KiroFile::readU32(std::uint32_t& value)
{
    return readNumber(value);
}

bool KiroFile::readU64(std::uint64_t& value)
{
    return readNumber(value);
}

bool KiroFile::readF64(double& value)
{
    return readNumber(value);
}

bool KiroFile::writeU8(std::uint8_t value)
{
    return writeNumber(value);
}

bool KiroFile::writeU16(std::uint16_t value)
{
    return writeNumber(value);
}

bool KiroFile::writeU32(std::uint32_t value)
{
    return writeNumber(value);
}

bool KiroFile::writeU64(std::uint64_t value)
{
    return writeNumber(value);
}

bool KiroFile::writeF32(float value)
{
    return writeNumber(value);
}

bool KiroFile::writeF64(double value)
{
    return writeNumber(value);
}

std::int32_t KiroFile::readRaw(void* buffer, std::int32_t count)
{
    if (!m_stream || count < 0)
        return -1;
    const auto read = std::fread(buffer, 1, static_cast<std::size_t>(count), m_stream);
    if (read < static_cast<std::size_t>(count) && std::feof(m_stream))
        return -1;
    return static_cast<std::int32_t>(read);
}

std::int32_t KiroFile::writeRaw(const void* buffer, std::int32_t count)
{
    if (!m_stream || count < 0)
        return -1;
    const auto written = std::fwrite(buffer, 1, static_cast<std::size_t>(count), m_stream);
    return written == static_cast<std::size_t>(count) ? count : -1;
}

bool KiroFile::flush()
{
    return m_stream && std::fflush(m_stream) == 0 && std::ferror(m_stream) == 0;
}
