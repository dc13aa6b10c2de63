#ifndef SELVORA_APP_KEYCHOICES_H
#define SELVORA_APP_KEYCHOICES_H

class QComboBox;

namespace selvora {

// The keys a link can wait for, as a list to choose from: an empty entry (-1), then the four
// coloured keys of a remote control, Enter and the four arrows, each with its picture and
// Portuguese name, the Qt key code as item data.
class KeyChoices {
public:
    // Refills the box; the key chosen before stays chosen.
    static void fill(QComboBox* box);
};

} // namespace selvora

#endif
