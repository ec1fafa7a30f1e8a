#include "common/mensagens.h"

#include <cstdio>

namespace ztolvan {

int PrimeiroBotao(int32_t tipo) {
    switch (tipo & 7) {
    case 3: // Yes/No/Cancel
    case 4: // Yes/No
        return msg::RespostaSim;
    case 2: // Abort/Retry/Ignore
        return 3;
    case 5: // Retry/Cancel
        return 4;
    default:
        return msg::RespostaOK;
    }
}

Valor MensagensGravadas::fnMsgbox(const std::string& Texto, int32_t Tipo, const std::string& Titulo,
                                  const std::string& Texto1, const std::string&, const std::string&, int32_t,
                                  const std::string&) {
    mostradas_.push_back({Texto, Tipo, Titulo, Texto1});
    if (ecoStderr) std::fprintf(stderr, "[%s] %s\n", Titulo.c_str(), Texto.c_str());
    if (!respostas_.empty()) {
        int r = respostas_.front();
        respostas_.pop_front();
        return r;
    }
    return PrimeiroBotao(Tipo);
}

} // namespace ztolvan

#include "common/portas.h"

namespace ztolvan {

Valor MostraMensagem(const std::string& Texto, int32_t Tipo, const std::string& Titulo,
                     const std::string& Texto1, const std::string& Texto2, const std::string& Texto3,
                     int32_t Valor1, const std::string& Texto4) {
    try {
        auto componente = PortasAtuais().mensagens;
        if (!componente) return {};
        return componente->fnMsgbox(Texto, Tipo, Titulo, Texto1, Texto2, Texto3, Valor1, Texto4);
    } catch (...) {
        return {};
    }
}

} // namespace ztolvan
