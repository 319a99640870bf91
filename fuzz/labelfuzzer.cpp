// Any bytes as a label file, and as the fields of labels: what is read or made is written, and read again the
// same.

#include "memoryfile.h"

#include "labelfile.h"

#include <algorithm>
#include <cstring>

namespace
{

/// Hands out the bytes of the input, zeros behind its end.
class Input
{
public:
    Input(const std::uint8_t* bytes, std::size_t count)
        : m_bytes(bytes)
        , m_left(count)
    {
    }

    bool isEmpty() const { return m_left == 0; }

    template <class Number>
    Number number()
    {
        Number result = 0;
        const std::size_t taken = std::min(sizeof result, m_left);
        std::memcpy(&result, m_bytes, taken);
        m_bytes += taken;
        m_left -= taken;
        return result;
    }

    QString text()
    {
        QString result;
        for (int left = number<std::uint8_t>(); left > 0 && !isEmpty(); --left)
            result += QChar(number<quint16>());
        return result;
    }

private:
    const std::uint8_t* m_bytes;
    std::size_t m_left;
};

KiroLabel labelFrom(Input& input)
{
    KiroLabel label;
    label.type = KiroLabel::indexToType(input.number<std::uint8_t>() % KiroLabel::TypeCount);
    label.time = input.number<quint32>();
    label.endTime = input.number<quint32>();
    label.signal = input.number<quint32>();
    const auto bits = input.number<quint64>();
    std::memcpy(&label.value, &bits, sizeof label.value);
    label.color = QColor::fromRgba64(QRgba64::fromRgba64(input.number<quint64>()));
    label.setName(input.text());
    label.setDescription(input.text());
    return label;
}

quint64 bitsOf(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

bool areSame(const KiroLabel& a, const KiroLabel& b)
{
    return a.type == b.type && a.time == b.time && a.endTime == b.endTime && a.signal == b.signal &&
           bitsOf(a.value) == bitsOf(b.value) && a.color.spec() == b.color.spec() && a.color == b.color &&
           a.name() == b.name() && a.description() == b.description();
}

void checkRoundTrip(const QList<KiroLabel>& labels)
{
    QByteArray bytes;
    QByteArray bytesAgain;
    QList<KiroLabel> again;
    QString reason;
    require(labelsToBytes(labels, bytes, reason) && labelsFromBytes(bytes, again, reason));
    require(std::equal(labels.begin(), labels.end(), again.begin(), again.end(), areSame));
    require(labelsToBytes(again, bytesAgain, reason) && bytesAgain == bytes);
}

void readAsFile(const std::uint8_t* bytes, std::size_t count)
{
    const MemoryFile file(bytes, count);
    QList<KiroLabel> labels{KiroLabel()};
    QString reason;
    if (readLabelFile(file.path().toQString(), labels, reason))
        checkRoundTrip(labels);
    else
        require(labels.size() == 1 && !reason.isEmpty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    readAsFile(bytes, count);
    QList<KiroLabel> labels;
    for (Input input(bytes, count); !input.isEmpty();)
        labels += labelFrom(input);
    checkRoundTrip(labels);
    return 0;
}
