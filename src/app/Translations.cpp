#include "app/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace selvora {

QStringList Translations::catalogueNames() {
    // qtbase holds the dialogs and widgets; qt is the umbrella that also brings the modules.
    return {QStringLiteral("qtbase_pt_BR"), QStringLiteral("qt_pt_BR")};
}

QStringList Translations::install(QCoreApplication* application) {
    const QString folder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    QStringList loaded;
    for (const QString& name : catalogueNames()) {
        auto* translator = new QTranslator(application);
        if (translator->load(name, folder) && QCoreApplication::installTranslator(translator))
            loaded << name;
        else
            delete translator;
    }
    return loaded;
}

} // namespace selvora
