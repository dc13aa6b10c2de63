#ifndef SELVORA_PROJECT_EXPORTSOURCES_H
#define SELVORA_PROJECT_EXPORTSOURCES_H

#include <QHash>
#include <QList>
#include <QString>

namespace selvora {
namespace document {
class Media;
}

namespace project {

// Where an exported lesson finds the file of each medium. A page beside the project file names
// media by their path relative to the folder. A package must hold everything it names, so a file
// outside the folder (a sound stored beside it, a medium never saved) is packed under
// medias/extra instead.
class ExportSources {
public:
    ExportSources(const QString& folder, bool packed);

    // The file the medium shows: its stored copy, or its original when it was never saved; for
    // a text or a shape its rendered picture, and nothing when that picture is missing.
    static QString fileOf(const document::Media* media);

    // The address of that file relative to the page, percent-encoded; empty when there is none.
    QString urlOf(const document::Media* media);

    // Every file that a package must hold, with its path inside the package, in first-use order.
    struct Packed {
        QString file;
        QString name;
    };
    QList<Packed> packedFiles() const { return packedFiles_; }

private:
    QString nameOf(const QString& file);

    QString folder_;
    bool packed_;
    int extras_ = 0;
    QHash<QString, QString> names_;
    QList<Packed> packedFiles_;
};

} // namespace project
} // namespace selvora

#endif
