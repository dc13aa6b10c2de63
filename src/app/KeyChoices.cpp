#include "app/KeyChoices.h"

#include "app/Definitions.h"

#include <QComboBox>
#include <QIcon>

namespace selvora {

void KeyChoices::fill(QComboBox* box) {
    using Key = Definitions::kButtonType;
    struct Entry {
        Key key;
        const char* picture;
    };
    static const Entry kKeys[] = {
        {Key::RED, ":/imagens/red"},
        {Key::GREEN, ":/imagens/green"},
        {Key::YELLOW, ":/imagens/yellow"},
        {Key::BLUE, ":/imagens/blue"},
        {Key::ENTER, ":/imagens/enter"},
        {Key::CURSOR_UP, ":/imagens/cursor_up"},
        {Key::CURSOR_LEFT, ":/imagens/cursor_left"},
        {Key::CURSOR_RIGHT, ":/imagens/cursor_right"},
        {Key::CURSOR_DOWN, ":/imagens/cursor_down"},
    };
    const QVariant chosen = box->currentData();
    box->clear();
    box->addItem(QString(), -1);
    for (const Entry& entry : kKeys) {
        const int code = int(entry.key);
        box->addItem(QIcon(entry.picture), Definitions::getkButtonTypeLegendBr(code), code);
    }
    box->setCurrentIndex(qMax(0, box->findData(chosen)));
}

} // namespace selvora
