#pragma once
#include <functional>
#include <memory>
#include <string>

#include "common/portas.h"
#include "common/texto.h"
#include "data/modules/modulos_teste.h"
#include "entry/sessao.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "screens/tela_teste.h"

namespace ztolvan::teste {

// The demo data behind the display-free window system, with operator TESTE
// of company 1 in the mode of an origin and nothing recorded yet.
template <class Janelas = JanelasModelo> class TelasNoDemo : public ComDemo {
  protected:
    void SetUp() override {
        ComDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        PortasAtuais().telas = janelas;
        Origem("V");
        gravador->chamadas.clear();
    }
    void TearDown() override {
        DefineAcoesConsulta({});
        ComDemo::TearDown();
    }
    Sessao& Origem(const std::string& origem, const std::string& tipo = "1") {
        Sessao& s = SessaoAtual();
        s.Empresa = s.EmpresaConsulta = 1;
        s.Operador = "TESTE";
        s.Origem = origem;
        s.OrigemTrim = Apara(origem);
        s.OrigemDocumento = origem == "V" || origem == "D" || origem == "C" || origem == "P";
        s.TipoPreco = tipo;
        s.DadosRetorno = Valor();
        return s;
    }
    // Opens TolvanF01 in the mode of 'origem' and lets the operator act.
    void Abre(const std::string& origem, std::function<void(TolvanF01&)> acao) {
        Origem(origem);
        janelas->AoMostrar("TolvanF01", [acao](Tela& t) { acao(static_cast<TolvanF01&>(t)); });
        TolvanF01 f;
        MostraModal(f);
    }

    std::shared_ptr<Janelas> janelas = std::make_shared<Janelas>();
};

} // namespace ztolvan::teste
