#pragma once

#include "kirostring.h"

#include <QtGlobal>

#include <cstdint>
#include <cstdio>

/// A binary file with selectable byte order.
///
/// Owns one C stream from open() to close() or destruction; a new object is closed and big-endian.
/// Offsets are bytes from the start, 0 to 2^31 - 1. Nothing here throws or shows a box; a call on a
/// closed file does nothing and returns its failure value.
class KiroFile
{
public:
    /// What open() takes; any other number is Append.
    enum Mode : int {
        Read = 0,   ///< "rb"
        Create = 1, ///< "wb", empties an existing file
        Update = 2, ///< "r+b", the file must exist
        Append = 3  ///< "a+b"
    };
    enum class ByteOrder { BigEndian = 0, LittleEndian = 1 };
    /// Files of this many bytes and more are not read as recordings: positions are signed 32-bit numbers.
    static constexpr std::int64_t SizeLimit = std::int64_t(1) << 31;
    static constexpr ByteOrder MachineOrder = ByteOrder::LittleEndian;
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the machine's order is fixed as little-endian");

    KiroFile() = default;
    ~KiroFile();

    /// Opens `name` (in the local 8-bit encoding). False if a file is open already, which stays open, if
    /// the system refuses, or if `name` is there but no regular file: a pipe or device could block.
    [[nodiscard]] bool open(const KiroString& name, int mode);
    /// False if bytes that were still buffered could not be written.
    bool close();
    bool isOpen() const { return m_stream != nullptr; }
    const KiroString& name() const { return m_name; }
    /// As given to open().
    int mode() const { return m_mode; }

    /// Bytes by the file system's word, without what is still buffered; 0 if closed or unknown.
    std::int64_t size() const;

    void setByteOrder(ByteOrder order);
    ByteOrder byteOrder() const { return m_order; }
    bool isMachineOrder() const { return m_machineOrder; }

    /// Moves to the absolute position `offset`.
    bool seek(std::int32_t offset);
    /// Present position, or -1.
    std::int64_t position() const;

    /// Each reads one number. At the end of the file `value` keeps its content and false is returned.
    bool readU8(std::uint8_t& value);
    bool readU16(std::uint16_t& value);
    bool readU32(std::uint32_t& value);
    bool readU64(std::uint64_t& value);
    bool readF64(double& value);

    /// Each writes one number; false if it could not be taken whole.
    bool writeU8(std::uint8_t value);
    bool writeU16(std::uint16_t value);
    bool writeU32(std::uint32_t value);
    bool writeU64(std::uint64_t value);
    bool writeF32(float value);
    bool writeF64(double value);

    /// Reads `count` bytes into `buffer`, which holds at least that many. Returns the number read, or
    /// -1 where the file ends first; `buffer` may then be half filled. A negative `count` gives -1.
    std::int32_t readRaw(void* buffer, std::int32_t count);
    /// Writes `count` bytes. Returns `count`, or -1 if fewer were written.
    std::int32_t writeRaw(const void* buffer, std::int32_t count);

    /// Hands all that is buffered to the system. False if that failed, now or in an earlier write.
    bool flush();

private:
    Q_DISABLE_COPY(KiroFile)
    template <class Number>
    bool readNumber(Number& value);
    template <class Number>
    bool writeNumber(Number value);

    std::FILE* m_stream = nullptr; // null while closed
    KiroString m_name;
    int m_mode = Read;
    ByteOrder m_order = ByteOrder::BigEndian;
    bool m_machineOrder = false;
    unsigned char m_scratch[8] = {}; // one number, for reversing
};
