#ifndef SELVORA_APP_ABOUTBOX_H
#define SELVORA_APP_ABOUTBOX_H

#include <QCoreApplication>
#include <QString>

class QWidget;

namespace selvora {
namespace menu {

// The box "Sobre Selvorá": the program's version and what it is for.
class AboutBox {
    Q_DECLARE_TR_FUNCTIONS(AboutBox)
public:
    static QString text();
    static void show(QWidget* parent);
};

} // namespace menu
} // namespace selvora

#endif
