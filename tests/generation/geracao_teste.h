#pragma once
// The demo database of either kind behind a real consultalista: ZProcessa
// with the screen option opens TolvanF01 on the display-free window system,
// a script searches a grouping, marks, answers the multiplier dialog and
// presses Ctrl+G, and the test reads back what was written.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>

#include "apoio/componente_teste.h"
#include "apoio/registro_teste.h"
#include "common/conversao.h"
#include "common/portas.h"
#include "common/seguranca.h"
#include "common/texto.h"
#include "data/banco_param.h"
#include "data/comunica.h"
#include "data/config_banco.h"
#include "data/despachante.h"
#include "data/modules/registro.h"
#include "data/schema/esquema.h"
#include "entry/telas_componente.h"
#include "generation/geracao.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/instala.h"
#include "screens/janelas.h"
#include "screens/tela_teste.h"
#include "ztolvan/consultalista.h"

namespace ztolvan::teste {

class GeracaoDemo : public ComComponente {
  protected:
    // The model screens and the generate command, as a host with screens has them.
    void Instala() override {
        PortasAtuais().telas = janelas;
        PortasAtuais().seguranca = [this] { return seguranca; };
        InstalaTelas();
        InstalaGeracao();
    }
    void TearDown() override {
        DefineAcoesConsulta({});
        ComComponente::TearDown();
    }

    // ZProcessa with the screen option: the operator finds 'grupo', 'marca'
    // adjusts the grid, the multiplier is 'mult' and Ctrl+G generates.
    int16_t Gera(const std::string& origem, Valor dados, const std::string& grupo, int mult = 1,
                 std::function<void(TolvanF01&)> marca = {}, int16_t tpmov = 0, int32_t numdoc = 1) {
        auto j = janelas;
        janelas->AoMostrar("TolvanF01", [=](Tela& t) {
            auto& f = static_cast<TolvanF01&>(t);
            Busca(f, 1, grupo);
            if (marca) marca(f);
            j->AoMostrar("TolvanF05", [mult](Tela& d) {
                auto& q = static_cast<TolvanF05&>(d);
                q.TxQtdGera.Digita(std::to_string(mult));
                q.bok_Click();
            });
            f.Tecla(&f.GCon1, tecla::Letra('G'), modificador::Ctrl);
        });
        int16_t empresa = 1, opcao = 1, statusret = -1, zstatus = 0, tp = tpmov;
        int32_t codigo = 0, doc = numdoc;
        std::string operador = "TESTE", senha, org = origem, mens;
        componente->ZProcessa(empresa, operador, senha, opcao, codigo, org, doc, tp, statusret, zstatus, mens,
                              &dados);
        return statusret;
    }

    // One row of a table read straight into a record of the modules, by the
    // record's own column list.
    template <class R> bool Le(R& r, const std::string& tabela, const std::string& onde) {
        Comunica& c = ComunicaAtual();
        c.Transacao = "REQUERY";
        c.Cursor = 0;
        c.Dados = "SELECT " + R::Colunas().Lista() + " FROM " + tabela + " WHERE " + onde;
        ExecutaComunica();
        if (c.Status != "00") return false;
        const auto& cols = R::Colunas().colunas;
        for (size_t i = 0; i < cols.size(); ++i) {
            if (cols[i].tipo == TipoCampo::Texto)
                cols[i].guardaTexto(&r, c.Retorno[i].eTexto() ? c.Retorno[i].texto() : CStr(c.Retorno[i]));
            else
                cols[i].guardaNumero(&r, ConverteNumero(cols[i], c.Retorno[i]));
        }
        return true;
    }
    // Every column of a written row against the expected record.
    template <class R> static void Compara(const R& esperado, const R& lido) {
        for (const Coluna& col : R::Colunas().colunas) {
            const Valor e = col.le(&esperado), l = col.le(&lido);
            if (col.tipo == TipoCampo::Duplo)
                EXPECT_NEAR(l.duplo(), e.duplo(), 1e-9 * (1 + std::abs(e.duplo()))) << col.nome;
            else
                EXPECT_EQ(l, e) << col.nome;
        }
    }

    std::shared_ptr<JanelasModelo> janelas = std::make_shared<JanelasModelo>();
    std::shared_ptr<SegurancaGravada> seguranca = std::make_shared<SegurancaGravada>();
};

} // namespace ztolvan::teste
