#include "app/Resources.h"

#include <QtGlobal>

// Q_INIT_RESOURCE must be used outside any namespace.
static void initSelvoraResources() {
    Q_INIT_RESOURCE(imagens);
    Q_INIT_RESOURCE(css);
}

namespace selvora {

void initResources() {
    static bool done = false;
    if (!done) {
        done = true;
        initSelvoraResources();
    }
}

} // namespace selvora
