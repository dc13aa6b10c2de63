#ifndef SELVORA_APP_TRANSLATIONS_H
#define SELVORA_APP_TRANSLATIONS_H

#include <QStringList>

class QCoreApplication;

namespace selvora {

// Qt's own texts (file dialogs, standard buttons, wizards, context menus) in Brazilian
// Portuguese, from the catalogues that the system's Qt installs.
class Translations {
public:
    // Installs the catalogues on the application, which owns them; returns the names of those
    // that loaded (none when the system has no Portuguese catalogues: Qt stays in English).
    static QStringList install(QCoreApplication* application);

    static QStringList catalogueNames();
};

} // namespace selvora

#endif
