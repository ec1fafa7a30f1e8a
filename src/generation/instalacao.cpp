// Generation as the consultation screen's generate command.
#include "generation/geracao.h"
#include "screens/consultation/tolvanf01.h"

namespace ztolvan {

namespace {

std::function<void(int, int)>& Observador() {
    thread_local std::function<void(int, int)> o;
    return o;
}

} // namespace

void DefineObservadorAndamento(std::function<void(int feitos, int marcados)> observador) {
    Observador() = std::move(observador);
}

void sbGerarDocumento(TolvanF01& f) {
    // A long run says how far it is on the screen's message line, which
    // repaints the window as it changes.
    const std::string mensagem = f.CMensagem.Caption;
    bool mostrou = false;
    TelaGeracao t{f.GCon1, f.MSFGAgrupamento, f.LNome.Caption, [&f] { f.sbSair(); },
                  [&](int feitos, int marcados) {
                      mostrou = true;
                      if (Observador()) Observador()(feitos, marcados);
                      if (f.Carregada()) f.DefineMensagem(TextoAndamento(feitos, marcados));
                  }};
    sbGerarDocumento(t);
    if (mostrou && f.Carregada()) f.DefineMensagem(mensagem);
}

void InstalaGeracao() {
    AcoesConsulta acoes = AcoesConsultaAtuais();
    acoes.GerarDocumento = [](TolvanF01& f) { sbGerarDocumento(f); };
    DefineAcoesConsulta(std::move(acoes));
}

} // namespace ztolvan
