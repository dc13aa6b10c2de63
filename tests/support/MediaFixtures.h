#ifndef SELVORA_TESTS_MEDIAFIXTURES_H
#define SELVORA_TESTS_MEDIAFIXTURES_H

#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QString>

namespace selvora {
namespace test {

// Media files for tests: pictures are made on the spot, the video is a two-second clip kept
// under tests/data.
class MediaFixtures {
public:
    // Writes a picture of that size (format from the suffix: png, jpg) and returns its path.
    static QString makeImage(const QString& directory, const QString& fileName, const QSize& size,
                             const QColor& color = QColor(255, 127, 0));
    static QString videoPath();
    static QString dataPath(const QString& fileName);
    // The bytes of a file; none when it cannot be read.
    static QByteArray contents(const QString& path);
};

} // namespace test
} // namespace selvora

#endif
