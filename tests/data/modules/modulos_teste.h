#pragma once
#include <string>
#include <vector>

#include "data/banco_param.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/modules/modulos.h"
#include "data/schema/esquema.h"

namespace ztolvan::teste {

// A database of either kind with the component's schema, the thread's
// connection open through a recording connector, and nothing recorded yet.
class ComEsquema : public SobreOsDoisBancos {
  protected:
    void SetUp() override {
        SobreOsDoisBancos::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        gravador = GravaChamadas(db->kind());
        ASSERT_TRUE(db->Conecta()) << ComunicaAtual().Msg;
        std::string msg;
        ASSERT_TRUE(CriaEsquema(msg)) << msg;
        ZeraCursoresModulos();
        gravador->chamadas.clear();
    }

    Comunica& c() { return ComunicaAtual(); }
    const std::vector<MensagemMostrada>& Mostradas() { return db->mensagens->Mostradas(); }
    std::vector<std::string> Palavras() { return gravador->Palavras(); }
    std::vector<std::string> Textos() { return teste::Textos(*db->mensagens); }
    // A setting of operator TESTE, replacing any earlier value.
    void Ajuste(const std::string& chave, const std::string& valor) {
        db->Direto("DELETE FROM TBREGSRV WHERE USUARIO = 'TESTE' AND CHAVE = '" + chave + "'");
        db->Direto("INSERT INTO TBREGSRV (USUARIO, CHAVE, VALOR) VALUES ('TESTE', '" + chave + "', '" + valor +
                   "')");
    }

    // One value of a statement run straight on the database through the
    // thread's connection (outside the modules).
    Valor Um(const std::string& sql) {
        c().Transacao = "REQUERY";
        c().Cursor = 0;
        c().Dados = sql;
        ExecutaComunica();
        EXPECT_EQ(c().Status, "00") << c().Msg << " em " << sql;
        return c().Status == "00" ? c().Retorno[0] : Valor();
    }

    // Every row of a statement run straight on the database through the
    // thread's connection.
    std::vector<Valor::Lista> TodasAsLinhas(const std::string& sql) {
        TabelaResultado r;
        std::string status, msg;
        ConectorAtual()->Consulta(c().Conexao, sql, r, status, msg);
        EXPECT_EQ(status, "00") << msg << " em " << sql;
        std::vector<Valor::Lista> linhas;
        for (size_t l = 0; l < r.linhas.size(); ++l)
            linhas.push_back(r.linhas[l]);
        return linhas;
    }

    // A table as a file made before the tables were STRICT holds it: same
    // columns and rows, any value accepted (file database only).
    void TabelaAntiga(const std::string& t) {
        db->Direto("CREATE TABLE " + t + "_ANTIGA AS SELECT * FROM " + t);
        db->Direto("DROP TABLE " + t);
        db->Direto("ALTER TABLE " + t + "_ANTIGA RENAME TO " + t);
    }

    ConectorGravador* gravador = nullptr;
};

// The schema with the demo data written.
class ComDemo : public ComEsquema {
  protected:
    void SetUp() override {
        ComEsquema::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        std::string msg;
        ASSERT_TRUE(SemeiaDemo(msg)) << msg;
    }
};

// Sets Funcao and Transacao of a module record and calls the module; gives
// back the call's status.
template <class R>
std::string Chama(R& registro, void (*modulo)(), const char* funcao, const char* transacao) {
    registro.Funcao = funcao;
    registro.Transacao = transacao;
    modulo();
    return ComunicaAtual().Status;
}

} // namespace ztolvan::teste
