#ifndef SELVORA_PROJECT_ZIPWRITER_H
#define SELVORA_PROJECT_ZIPWRITER_H

#include <QByteArray>
#include <QList>
#include <QString>

class QIODevice;

namespace selvora {
namespace project {

// A zip archive of stored (uncompressed) entries, enough for a package that a learning platform
// unpacks: media are compressed already. Names are UTF-8 and relative; no entry may climb out
// of the archive's root. Archives past 4 GiB or 65535 entries are refused (no zip64).
class ZipWriter {
public:
    explicit ZipWriter(QIODevice* device);

    bool addData(const QString& name, const QByteArray& data);
    // Copies a file in pieces, so that a long video never sits in memory whole.
    bool addFile(const QString& name, const QString& path);
    // Writes the central directory; false if any step failed.
    bool finish();

    static quint32 crc32(const QByteArray& data, quint32 crc = 0);

private:
    struct Entry {
        QByteArray name;
        quint32 crc;
        quint32 size;
        quint32 offset;
    };
    bool validName(const QString& name) const;
    bool writeHeader(const Entry& entry);

    QIODevice* device_;
    QList<Entry> entries_;
    bool failed_ = false;
};

} // namespace project
} // namespace selvora

#endif
