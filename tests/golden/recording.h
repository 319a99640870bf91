#pragma once

#include "jsonvalues.h"

#include "elementtype.h"
#include "kirofile.h"
#include "kiroreader.h"

#include <QString>

#include <optional>
#include <vector>

/// A recording of a corpus, opened as the programs open it.
class Recording
{
public:
    explicit Recording(const QString& path);

    bool isOpen() const { return m_open; }
    /// Whether KiroHeader alone takes the file too.
    bool headerLoads() const { return m_headerLoads; }
    const KiroString& path() const { return m_path; }
    const KiroHeader& header() const { return m_reader.header(); }
    const KiroReader& reader() const { return m_reader; }
    KiroReader& reader() { return m_reader; }
    /// Of the stream once the header was read.
    KiroFile::ByteOrder byteOrder() const { return m_byteOrder; }
    std::int64_t readableFrames() const;

private:
    KiroString m_path;
    KiroReader m_reader;
    bool m_open = false;
    bool m_headerLoads = false;
    KiroFile::ByteOrder m_byteOrder = KiroFile::ByteOrder::BigEndian;
};

/// Compares up to 16 raw samples of a signal with `wanted`, read one by one and in bulk: the first ones of
/// the readable frames, or the last ones if `atEnd`.
Verdict checkFirstSamples(Recording& recording, int signal, const QJsonValue& wanted);
Verdict checkLastSamples(Recording& recording, int signal, const QJsonValue& wanted);
