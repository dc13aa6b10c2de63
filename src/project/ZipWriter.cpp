#include "project/ZipWriter.h"

#include <QDataStream>
#include <QDateTime>
#include <QFile>
#include <QIODevice>

#include <array>

namespace selvora {
namespace project {

namespace {

constexpr quint32 kLocalHeader = 0x04034b50;
constexpr quint32 kCentralHeader = 0x02014b50;
constexpr quint32 kEndOfDirectory = 0x06054b50;
constexpr quint16 kVersion = 20;
constexpr quint16 kUtf8Names = 0x0800;
constexpr qint64 kLimit = 0xffffffffLL;
constexpr int kChunk = 1 << 20;

const std::array<quint32, 256>& crcTable() {
    static const std::array<quint32, 256> table = [] {
        std::array<quint32, 256> t{};
        for (quint32 n = 0; n < 256; ++n) {
            quint32 c = n;
            for (int k = 0; k < 8; ++k)
                c = (c & 1) ? 0xedb88320u ^ (c >> 1) : c >> 1;
            t[n] = c;
        }
        return t;
    }();
    return table;
}

// The time of writing in the two 16-bit words of the format.
void dosTime(quint16& time, quint16& date) {
    const QDateTime now = QDateTime::currentDateTime();
    const int year = qBound(1980, now.date().year(), 2107);
    time =
        quint16((now.time().hour() << 11) | (now.time().minute() << 5) | (now.time().second() / 2));
    date = quint16(((year - 1980) << 9) | (now.date().month() << 5) | now.date().day());
}

} // namespace

ZipWriter::ZipWriter(QIODevice* device) : device_(device) {}

quint32 ZipWriter::crc32(const QByteArray& data, quint32 crc) {
    const auto& table = crcTable();
    crc = ~crc;
    for (const char byte : data)
        crc = table[(crc ^ quint8(byte)) & 0xff] ^ (crc >> 8);
    return ~crc;
}

bool ZipWriter::validName(const QString& name) const {
    if (name.isEmpty() || name.startsWith(QLatin1Char('/')) || name.contains(QLatin1Char('\\')))
        return false;
    const QStringList parts = name.split(QLatin1Char('/'));
    for (const QString& part : parts) {
        if (part.isEmpty() || part == QLatin1String("..") || part == QLatin1String("."))
            return false;
    }
    return entries_.size() < 0xffff;
}

bool ZipWriter::writeHeader(const Entry& entry) {
    quint16 time = 0;
    quint16 date = 0;
    dosTime(time, date);
    QDataStream out(device_);
    out.setByteOrder(QDataStream::LittleEndian);
    out << kLocalHeader << kVersion << kUtf8Names << quint16(0) << time << date << entry.crc
        << entry.size << entry.size << quint16(entry.name.size()) << quint16(0);
    out.writeRawData(entry.name.constData(), entry.name.size());
    return out.status() == QDataStream::Ok;
}

bool ZipWriter::addData(const QString& name, const QByteArray& data) {
    if (failed_ || !validName(name) || device_->pos() > kLimit || data.size() > kLimit) {
        failed_ = true;
        return false;
    }
    const Entry entry{name.toUtf8(), crc32(data), quint32(data.size()), quint32(device_->pos())};
    if (!writeHeader(entry) || device_->write(data) != data.size()) {
        failed_ = true;
        return false;
    }
    entries_.append(entry);
    return true;
}

bool ZipWriter::addFile(const QString& name, const QString& path) {
    QFile file(path);
    if (failed_ || !validName(name) || !file.open(QIODevice::ReadOnly) || file.size() > kLimit ||
        device_->pos() > kLimit) {
        failed_ = true;
        return false;
    }
    quint32 crc = 0;
    while (!file.atEnd())
        crc = crc32(file.read(kChunk), crc);
    const Entry entry{name.toUtf8(), crc, quint32(file.size()), quint32(device_->pos())};
    if (!writeHeader(entry) || !file.seek(0)) {
        failed_ = true;
        return false;
    }
    qint64 copied = 0;
    while (!file.atEnd()) {
        const QByteArray chunk = file.read(kChunk);
        if (device_->write(chunk) != chunk.size()) {
            failed_ = true;
            return false;
        }
        copied += chunk.size();
    }
    // A file that changed size while it was read would leave a broken entry.
    if (copied != entry.size) {
        failed_ = true;
        return false;
    }
    entries_.append(entry);
    return true;
}

bool ZipWriter::finish() {
    if (failed_ || device_->pos() > kLimit)
        return false;
    quint16 time = 0;
    quint16 date = 0;
    dosTime(time, date);
    const qint64 start = device_->pos();
    QDataStream out(device_);
    out.setByteOrder(QDataStream::LittleEndian);
    for (const Entry& entry : entries_) {
        out << kCentralHeader << quint16(0x0300 | kVersion) << kVersion << kUtf8Names << quint16(0)
            << time << date << entry.crc << entry.size << entry.size << quint16(entry.name.size())
            << quint16(0) << quint16(0) << quint16(0) << quint16(0) << quint32(0100644u << 16)
            << entry.offset;
        out.writeRawData(entry.name.constData(), entry.name.size());
    }
    const qint64 size = device_->pos() - start;
    if (device_->pos() > kLimit)
        return false;
    out << kEndOfDirectory << quint16(0) << quint16(0) << quint16(entries_.size())
        << quint16(entries_.size()) << quint32(size) << quint32(start) << quint16(0);
    return out.status() == QDataStream::Ok;
}

} // namespace project
} // namespace selvora
