#include "support/MediaFixtures.h"

#include <QFile>

#include <QDir>
#include <QImage>
#include <QPainter>

namespace selvora {
namespace test {

QString MediaFixtures::makeImage(const QString& directory, const QString& fileName,
                                 const QSize& size, const QColor& color) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    painter.drawLine(0, 0, size.width() - 1, size.height() - 1);
    painter.end();
    const QString path = QDir(directory).filePath(fileName);
    return image.save(path) ? path : QString();
}

QString MediaFixtures::videoPath() {
    return dataPath("clip.mp4");
}

QString MediaFixtures::dataPath(const QString& fileName) {
    return QDir(QStringLiteral(SELVORA_TEST_DATA)).filePath(fileName);
}

QByteArray MediaFixtures::contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace test
} // namespace selvora
