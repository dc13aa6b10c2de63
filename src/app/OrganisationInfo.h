#ifndef SELVORA_APP_ORGANISATIONINFO_H
#define SELVORA_APP_ORGANISATIONINFO_H

#include <QString>
#include <QStringList>

namespace selvora {

// Who makes the program, and how it starts: the names that QSettings and the window use.
class OrganisationInfo {
public:
    static QString name() { return QStringLiteral("Corvane Systems"); }
    static QString domain() { return QStringLiteral("corvane.example"); }
    static QString version() { return QStringLiteral("1.6.2"); }

    // Exactly one argument names a project to open; none, or more than one, open nothing.
    static QString projectArgument(const QStringList& arguments) {
        return arguments.size() == 2 ? arguments.at(1) : QString();
    }
};

} // namespace selvora

#endif
