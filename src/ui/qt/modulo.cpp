// The screens module (libztolvan-telas.so): the Qt windows and printer that
// the core library loads on demand, only when a call needs a window or a
// printer. Its C entry points are all the core asks of it.
#include "ui/qt/comum_qt.h"
#include "ui/qt/impressora_qt.h"
#include "ui/qt/instala_qt.h"

extern "C" {

// Installs the Qt ports on the calling thread; false when no display can be
// reached.
__attribute__((visibility("default"))) bool zt_telas_instala() {
    try {
        return ztolvan::InstalaQt();
    } catch (...) {
        return false;
    }
}

// A quotation job written to the PDF file 'arquivo'; nullptr when it cannot be.
__attribute__((visibility("default"))) ztolvan::PortaImpressora* zt_telas_impressora_pdf(const char* arquivo) {
    try {
        if (arquivo && ztolvan::InstalaImpressoraQt())
            return new ztolvan::ImpressoraQt(QString(), ztolvan::Q(arquivo));
    } catch (...) {
    }
    return nullptr;
}

} // extern "C"
