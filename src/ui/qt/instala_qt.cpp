#include "ui/qt/instala_qt.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

#include "common/portas.h"
#include "data/seguranca/seguranca_banco.h"
#include "ui/qt/autorizacao_qt.h"
#include "generation/cotacao/impressora.h"
#include "ui/qt/comum_qt.h"
#include "ui/qt/impressora_qt.h"
#include "ui/qt/janelas_qt.h"
#include "ui/qt/mensagens_qt.h"

namespace ztolvan {
namespace {

std::string Ambiente(const char* nome) {
    const char* v = std::getenv(nome);
    return v ? v : "";
}

// Qt aborts the process when the display it is given cannot be opened, so
// an X display named but out of reach (a stale DISPLAY over ssh) is tried
// first through libxcb, loaded only for the question.
bool XAlcancavel() {
    void* xcb = dlopen("libxcb.so.1", RTLD_LAZY | RTLD_LOCAL);
    if (!xcb) return false;
    using Conecta = void* (*)(const char*, int*);
    using TemErro = int (*)(void*);
    using Desconecta = void (*)(void*);
    auto conecta = reinterpret_cast<Conecta>(dlsym(xcb, "xcb_connect"));
    auto temErro = reinterpret_cast<TemErro>(dlsym(xcb, "xcb_connection_has_error"));
    auto desconecta = reinterpret_cast<Desconecta>(dlsym(xcb, "xcb_disconnect"));
    bool ok = false;
    if (conecta && temErro && desconecta) {
        void* c = conecta(nullptr, nullptr);
        ok = c && temErro(c) == 0;
        if (c) desconecta(c);
    }
    dlclose(xcb);
    return ok;
}

bool WaylandAlcancavel(const std::string& nome) {
    const std::string caminho = nome.starts_with('/') ? nome : Ambiente("XDG_RUNTIME_DIR") + "/" + nome;
    struct stat st {};
    return stat(caminho.c_str(), &st) == 0;
}

bool HaTela() {
    if (!Ambiente("QT_QPA_PLATFORM").empty()) return true; // the caller chose; Qt is trusted with it
    if (!Ambiente("DISPLAY").empty() && XAlcancavel()) return true;
    const std::string wayland = Ambiente("WAYLAND_DISPLAY");
    return !wayland.empty() && WaylandAlcancavel(wayland);
}

bool GaranteAplicacao() {
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) return true;
    if (QCoreApplication::instance()) return false; // a non-widget application: no windows here
    static int argc = 1;
    static char nome[] = "ztolvan";
    static char* argv[] = {nome, nullptr};
    auto* app = new QApplication(argc, argv); // lives as long as the process
    // Nobody runs app.exec(): closing the last dialog must not end every later exec().
    app->setQuitOnLastWindowClosed(false);
    // Qt's own words (Copy, Paste, Show Details...) in the operators' language, when installed.
    auto* traducao = new QTranslator(app);
    if (traducao->load(QLocale(QStringLiteral("pt_BR")), QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        app->installTranslator(traducao);
    return true;
}

Portas PortasQt(bool naTela) {
    Portas p;
    if (naTela) {
        p.mensagens = std::make_shared<MensagensQt>();
        p.telas = std::make_shared<JanelasQt>();
    }
    p.seguranca = FabricaSegurancaBanco(std::make_shared<AutorizacaoQt>());
    return p;
}

} // namespace

bool InstalaImpressoraQt() {
    try {
        if (!QCoreApplication::instance()) {
            // Without a session's runtime folder Qt warns on every run of
            // the command line; a private one of this user's stands in.
            if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
                const std::string pasta = "/tmp/ztolvan-runtime-" + std::to_string(getuid());
                if (mkdir(pasta.c_str(), 0700) == 0 || errno == EEXIST) setenv("XDG_RUNTIME_DIR", pasta.c_str(), 0);
            }
            static int argc = 3;
            static char nome[] = "ztolvan", opcao[] = "-platform", plataforma[] = "offscreen";
            static char* argv[] = {nome, opcao, plataforma, nullptr};
            new QGuiApplication(argc, argv); // lives as long as the process
        }
        if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return false;
        DefineFabricaImpressora(NovaImpressoraQt);
        return true;
    } catch (...) {
        return false;
    }
}

bool InstalaQt() {
    try {
        if (!HaTela() || !GaranteAplicacao()) return false;
        DefineFabricaPortas([] { return PortasQt(NaThreadDaTela()); });
        DefineFabricaImpressora(NovaImpressoraQt);
        // This thread may have filled its ports already.
        if (NaThreadDaTela()) {
            Portas q = PortasQt(true);
            Portas& atuais = PortasAtuais();
            atuais.mensagens = q.mensagens;
            atuais.telas = q.telas;
            atuais.seguranca = q.seguranca;
        }
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace ztolvan
