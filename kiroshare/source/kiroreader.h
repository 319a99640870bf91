#pragma once

#include "kirofile.h"
#include "kiroheader.h"
#include "kirovalue.h"

#include <QVector>

#include <cstdint>
#include <memory>
#include <vector>

/// Random access to the samples of a recording, and the way to rewrite its header.
///
/// Holds the header and one buffer with a stretch of the sample data. The file is open only within a
/// call. Reading whole signals is KiroBulkReader's work. Offsets of data count from the first byte
/// behind the header. Belongs to one thread. Failures are reported by false and errorText(), but
/// getSample() ends the process: a sample that is not there is a fault of the caller, who checks
/// indices and checkIntegrity() first.
class KiroReader
{
public:
    /// Files of this many bytes and more are refused: positions are signed 32-bit numbers.
    static constexpr std::int64_t FileSizeLimit = KiroFile::SizeLimit;

    KiroReader() = default;
    ~KiroReader();

    /// Binds the reader to a file and loads its header. False if a file is set already (it stays), if the
    /// file cannot be opened or is no recording, if it holds FileSizeLimit bytes or more, or if a sample
    /// is larger than KiroValue::MaxSize.
    bool setFile(const KiroString& path);
    /// Lets the file go. Buffer, read size and read back stay for the next file.
    void close();
    bool isOpen() const { return !m_fileName.isEmpty(); }
    const KiroString& fileName() const { return m_fileName; }
    /// Whether the file let itself be opened for reading and writing.
    bool isWritable() const { return m_writable; }
    /// Bytes in the file before the first frame.
    std::int64_t dataStart() const { return m_dataStart; }
    /// Whether samples are stored in the other byte order than the machine's.
    bool swapsBytes() const { return m_swap; }
    const KiroString& errorText() const { return m_errorText; }

    KiroHeader& header() { return m_header; }
    const KiroHeader& header() const { return m_header; }

    /// Takes a buffer of `size` bytes in place of the old one and keeps what fits. A read size of 0 or
    /// above `size` becomes `size`, with read back 0. False, and no change, for 0 or without memory.
    bool setBufferSize(int size);
    /// Sets what a refill reads: `back` bytes ahead of the sample asked for and `ahead` bytes from it
    /// on. The buffer grows if it must. False, and no change, if the sum is 0 or does not fit memory.
    bool setReadSize(int back, int ahead);
    bool setReadSize(int ahead) { return setReadSize(0, ahead); }
    int bufferSize() const { return m_bufferSize; }
    int readSize() const { return m_readSize; }
    int readBack() const { return m_readBack; }
    /// Data offset of the buffer's first byte, and number of valid bytes.
    int bufferStart() const { return m_bufferStart; }
    int bufferFill() const { return m_bufferFill; }

    /// Sample `sample` (from 0) of signal `signal`. Every failure is a fatal error: no file, a bad signal
    /// index, a sample that the file does not hold. Without a buffer one of a sensible size is taken.
    KiroValue getSample(int signal, int sample);

    /// Fills the buffer with `length` bytes of data from offset `start`, reusing what it holds of them.
    /// False if they do not fit the buffer or do not stand in the file; bufferStart() and bufferFill()
    /// then stay, and so does the buffer's content unless the disk failed halfway. Normally called by
    /// getSample().
    bool readFile(int start, int length);

    /// Whether the declared number of frames is the number of whole frames that the file holds.
    bool checkIntegrity();

    /// Writes the header into the file. From version 6 on only the stretch of bytes that differ is written,
    /// in place; a header that would no longer have the size of the file's is refused. Older headers may
    /// change their size; the file is then written anew beside the old one and renamed, so that a crash
    /// leaves the old or the new file. If such a header shrinks, the file keeps its length and the bytes at
    /// its end.
    bool updateHeader();

    /// Reads a stretch of one signal into `out`: `count` samples from `first` on, all that remain if
    /// `count` is 0 or runs past the end. Calibrated values where `calibrate` is set and the signal is
    /// calibrated, else raw ones. False, with `out` untouched, if the file or signal cannot be read or
    /// `first` is not below the number of samples.
    static bool readSignal(const KiroString& path, int signal, std::vector<double>& out,
                           bool calibrate = true, int first = 0, int count = 0);
    static bool readSignal(const KiroString& path, int signal, QVector<double>& out, bool calibrate = true,
                           int first = 0, int count = 0);

private:
    Q_DISABLE_COPY(KiroReader)
    /// Where the samples of one signal lie.
    struct Run
    {
        std::uint32_t samplesPerFrame = 0;
        std::uint32_t sampleSize = 0;
        std::int64_t offset = 0; ///< of the run within a frame
        KiroValue prototype;     ///< has the type and size
    };

    void reset();
    bool fail(const KiroString& text);
    bool setUpRuns();
    bool bufferHolds(std::int64_t offset, std::uint32_t size) const;
    void refill(std::int64_t offset, std::uint32_t sampleSize);
    bool openAtData(KiroFile& file, int offset, int count);
    bool failRead(int toRead, int read);
    bool writeHeaderInPlace(KiroFile& file);
    bool writeFileWithNewHeader(KiroFile& file, std::int64_t oldHeaderSize);

    KiroString m_fileName; // not empty while a file is set
    KiroHeader m_header;
    bool m_swap = false;
    bool m_writable = false;
    std::vector<Run> m_runs; // one for each signal
    std::int64_t m_frameSize = 0;
    std::int64_t m_dataStart = 0; // in the file, whatever the caller has made of the header since
    std::unique_ptr<unsigned char[]> m_buffer;
    int m_bufferSize = 0;
    int m_readSize = 0;
    int m_readBack = 0;
    int m_bufferStart = 0;
    int m_bufferFill = 0;
    KiroString m_errorText;
};
