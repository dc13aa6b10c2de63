#include "project/ScormPackage.h"

#include "project/ExportSources.h"
#include "project/HtmlExport.h"
#include "project/LessonJson.h"
#include "project/ZipWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSet>
#include <QUrl>
#include <QXmlStreamWriter>

namespace selvora {
namespace project {

namespace {

const QString kPage = QStringLiteral("index.html");
const QString kManifest = QStringLiteral("imsmanifest.xml");

QString encodedPath(const QString& name) {
    QStringList parts = name.split(QLatin1Char('/'));
    for (QString& part : parts)
        part = QString::fromLatin1(QUrl::toPercentEncoding(part));
    return parts.join(QLatin1Char('/'));
}

} // namespace

QByteArray ScormPackage::manifest(const QString& identifier, const QString& title,
                                  const QStringList& files) {
    QByteArray xml;
    QXmlStreamWriter out(&xml);
    out.setAutoFormatting(true);
    out.setAutoFormattingIndent(1);
    out.writeStartDocument();
    out.writeStartElement(QStringLiteral("manifest"));
    out.writeAttribute(QStringLiteral("identifier"), identifier);
    out.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    out.writeDefaultNamespace(QStringLiteral("http://www.imsproject.org/xsd/imscp_rootv1p1p2"));
    out.writeNamespace(QStringLiteral("http://www.adlnet.org/xsd/adlcp_rootv1p2"),
                       QStringLiteral("adlcp"));
    out.writeNamespace(QStringLiteral("http://www.w3.org/2001/XMLSchema-instance"),
                       QStringLiteral("xsi"));
    out.writeAttribute(
        QStringLiteral("xsi:schemaLocation"),
        QStringLiteral("http://www.imsproject.org/xsd/imscp_rootv1p1p2 imscp_rootv1p1p2.xsd "
                       "http://www.imsglobal.org/xsd/imsmd_rootv1p2p1 imsmd_rootv1p2p1.xsd "
                       "http://www.adlnet.org/xsd/adlcp_rootv1p2 adlcp_rootv1p2.xsd"));

    out.writeStartElement(QStringLiteral("metadata"));
    out.writeTextElement(QStringLiteral("schema"), QStringLiteral("ADL SCORM"));
    out.writeTextElement(QStringLiteral("schemaversion"), QStringLiteral("1.2"));
    out.writeEndElement();

    out.writeStartElement(QStringLiteral("organizations"));
    out.writeAttribute(QStringLiteral("default"), QStringLiteral("organizacao"));
    out.writeStartElement(QStringLiteral("organization"));
    out.writeAttribute(QStringLiteral("identifier"), QStringLiteral("organizacao"));
    out.writeTextElement(QStringLiteral("title"), title);
    out.writeStartElement(QStringLiteral("item"));
    out.writeAttribute(QStringLiteral("identifier"), QStringLiteral("licao"));
    out.writeAttribute(QStringLiteral("identifierref"), QStringLiteral("recurso"));
    out.writeAttribute(QStringLiteral("isvisible"), QStringLiteral("true"));
    out.writeTextElement(QStringLiteral("title"), title);
    out.writeEndElement(); // item
    out.writeEndElement(); // organization
    out.writeEndElement(); // organizations

    out.writeStartElement(QStringLiteral("resources"));
    out.writeStartElement(QStringLiteral("resource"));
    out.writeAttribute(QStringLiteral("identifier"), QStringLiteral("recurso"));
    out.writeAttribute(QStringLiteral("type"), QStringLiteral("webcontent"));
    out.writeAttribute(QStringLiteral("adlcp:scormtype"), QStringLiteral("sco"));
    out.writeAttribute(QStringLiteral("href"), kPage);
    for (const QString& file : files) {
        out.writeEmptyElement(QStringLiteral("file"));
        out.writeAttribute(QStringLiteral("href"), encodedPath(file));
    }
    out.writeEndElement(); // resource
    out.writeEndElement(); // resources
    out.writeEndElement(); // manifest
    out.writeEndDocument();
    return xml;
}

ExportResult ScormPackage::run(const document::Document* document, const QString& folder) {
    ExportResult result;
    if (!HtmlExport::hasFolder(folder, result))
        return result;
    const QString base = HtmlExport::baseName(document, folder);
    const QString name = base + QStringLiteral("-scorm.zip");
    result.path = QDir(folder).filePath(name);

    ExportSources sources(folder, true);
    const QByteArray page = HtmlExport::page(document, sources, true);
    QStringList files{kPage};
    QList<ExportSources::Packed> packed;
    QSet<QString> names{kPage, kManifest};
    for (const ExportSources::Packed& entry : sources.packedFiles()) {
        if (names.contains(entry.name))
            continue;
        names.insert(entry.name);
        packed.append(entry);
        files.append(entry.name);
    }
    // An identifier must be an XML name: letters, digits, dots, dashes and underscores.
    QString identifier = QStringLiteral("selvora-") + base;
    identifier.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9._-]")), QStringLiteral("_"));

    QSaveFile file(result.path);
    bool written = file.open(QIODevice::WriteOnly);
    if (written) {
        ZipWriter zip(&file);
        written =
            zip.addData(kManifest, manifest(identifier, LessonJson::title(document), files)) &&
            zip.addData(kPage, page);
        for (const ExportSources::Packed& entry : packed)
            written = written && zip.addFile(entry.name, entry.file);
        written = written && zip.finish() && file.commit();
    }
    if (!written) {
        result.message =
            QCoreApplication::translate("ScormPackage", "Não foi possível gravar o pacote %1.")
                .arg(name);
        return result;
    }
    result.ok = true;
    result.message = QCoreApplication::translate(
                         "ScormPackage", "O pacote SCORM %1 foi criado na pasta do projeto.")
                         .arg(name);
    return result;
}

} // namespace project
} // namespace selvora
