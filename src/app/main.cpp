#include "app/MainWindow.h"
#include "app/OrganisationInfo.h"
#include "app/Resources.h"
#include "app/StyleSheet.h"
#include "app/Translations.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // Before any widget exists, so that every text of Qt's is in Portuguese.
    selvora::Translations::install(&application);
    selvora::initResources();
    QCoreApplication::setOrganizationName(selvora::OrganisationInfo::name());
    QCoreApplication::setOrganizationDomain(selvora::OrganisationInfo::domain());
    QGuiApplication::setApplicationDisplayName(QString::fromUtf8("Selvorá"));
    QCoreApplication::setApplicationVersion(selvora::OrganisationInfo::version());
    selvora::applyCSS(&application);

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    // The window lives as long as the program and is never deleted explicitly.
    new selvora::MainWindow(selvora::OrganisationInfo::projectArgument(arguments));
    QApplication::exec();
    return 0;
}
