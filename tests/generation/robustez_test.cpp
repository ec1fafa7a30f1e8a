// Generation under stress on both databases: a process killed at random
// moments leaves whole items only; two processes generating into the same
// document never share an item number and report every collision; hostile
// values in the tables are handled or reported, never a crash.
#include "generation/geracao_teste.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <csignal>
#include <random>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "data/modules/modulos.h"
#include "entry/sessao.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

const Valor VendaSP = Valor::Lista{5102, "1", 0, "SP", "SP", "SP", "SP"};

// A grid loaded by the consultation screen, kept as generation's input.
void Copia(const Grade& de, Grade& para) {
    para.DefineCols(de.Cols());
    for (int r = 0; r < de.Rows(); ++r) {
        std::string l;
        for (int c = 0; c < de.Cols(); ++c)
            l += (c ? "\t" : "") + de.TextMatrix(r, c);
        para.AddItem(l);
    }
    if (para.Rows() > 1) para.DefineRow(1);
}

// ZProcessa fills the context of the origin's document 1; then the
// consultation screen loads 'grupo' with every row marked, and its grids
// and name are kept as generation's input.
void Carrega(consultalista& componente, const std::string& origem, int16_t tpmov, Valor dados,
             const std::string& grupo, Grade& itens, Grade& agrupamentos, std::string& nome) {
    int16_t empresa = 1, opcao = 0, ret = 0, zs = 0;
    int32_t cod = 0, doc = 1;
    std::string op = "TESTE", senha, o = origem, mens;
    componente.ZProcessa(empresa, op, senha, opcao, cod, o, doc, tpmov, ret, zs, mens, &dados);
    TolvanF01 f;
    f.Carrega();
    f.cboPesquisa.Seleciona(1);
    f.txtPesquisa.Digita(grupo);
    f.bttPesquisa_Click();
    f.sbMarcarTodosDaTela();
    Copia(f.GCon1, itens);
    Copia(f.MSFGAgrupamento, agrupamentos);
    nome = f.LNome.Caption;
}

class Robustez : public GeracaoDemo {
  protected:
    // A grouping of n items (distinct quantities, every product in stock),
    // cascade discounts on, the session filled by ZProcessa and the grouping
    // loaded by the consultation screen; the parent then holds no connection,
    // so that the children forked below open their own and start generating
    // at once.
    void Prepara(int n, const std::string& origem = "V") {
        origem_ = origem;
        db->Direto("UPDATE TBMAT SET QtdItAtu = 1000, QtdItBloq = 0 WHERE Empresa = 1");
        if (origem == "D") Ajuste("BLOQUEIA ITENS", "SIM");
        std::ostringstream sql;
        sql << "INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, Qtd, UndItem, "
               "QtdUnd, Valor, STTR, Tipo) VALUES ";
        for (int i = 0; i < n; ++i) {
            const std::string p = std::to_string(1001 + i % 63);
            sql << (i ? ", " : "") << "(1, 'CARGA', 'Carga de teste', " << i + 1 << ", '" << p
                << "', 'x', '7891234" << p << "00', " << i + 1 << ", 'UN', 1, 1, 0, 1)";
        }
        db->Direto(sql.str());
        Ajuste("DESCONTO CASCATA", "SIM");
        // A store document of type 2 blocks its items' stock; a purchase
        // order is supplier 101's.
        Carrega(*componente, origem, origem == "D" ? 2 : 0,
                origem == "C" ? Valor(Valor::Lista{1102, 101}) : VendaSP, "CARGA", itens, agrupamentos, nome);
        ASSERT_EQ(itens.Rows(), n + 1);
        componente.reset();
    }

    // A terminal: a child process with its own connection, generating every
    // row into document 'documento' (0: the session's) through the generate
    // command. 'pronto' gets a byte just before it; with 'vai', it then waits
    // for the parent's byte. 'resultado' gets "<items written> <collisions>
    // <other messages>".
    [[noreturn]] void Filho(int documento, int pronto, int vai, int resultado) {
        int escritos = 0, existe = 0, outras = 0;
        try {
            if (!db->Conecta()) _exit(4);
            ZeraCursoresModulos();
            db->mensagens->Limpa();
            if (documento > 0) SessaoAtual().NumDoc = documento;
            janelas->AoMostrar("TolvanF05", [](Tela& d) {
                auto& q = static_cast<TolvanF05&>(d);
                q.TxQtdGera.Digita("1");
                q.bok_Click();
            });
            TelaGeracao tela{itens, agrupamentos, nome, {}};
            char b = 'p';
            if (write(pronto, &b, 1) != 1) _exit(3);
            if (vai >= 0 && read(vai, &b, 1) != 1) _exit(3);
            sbGerarDocumento(tela);
            escritos = static_cast<int>(ItensGerados().size());
            for (const auto& m : Mostradas())
                (m.Texto.ends_with(" JÁ EXISTE NO DOCUMENTO!") ? existe : outras)++;
        } catch (...) {
            _exit(2);
        }
        const std::string r =
            std::to_string(escritos) + " " + std::to_string(existe) + " " + std::to_string(outras) + "\n";
        if (resultado >= 0 && write(resultado, r.data(), r.size()) != static_cast<ssize_t>(r.size()))
            _exit(3);
        _exit(0);
    }

    struct Relato {
        int escritos = -1, existe = -1, outras = -1;
    };
    // 'n' terminals, terminal i into document documento(i), let go at the
    // same moment once all are connected; what each says.
    std::vector<Relato> Juntos(int n, const std::function<int(int)>& documento) {
        std::vector<Relato> r(static_cast<size_t>(n));
        int pronto[2], vai[2];
        std::vector<std::array<int, 2>> resultado(r.size());
        std::vector<pid_t> pids(r.size());
        if (pipe(pronto) != 0 || pipe(vai) != 0) ADD_FAILURE() << "pipe";
        for (size_t i = 0; i < r.size(); ++i) {
            if (pipe(resultado[i].data()) != 0) ADD_FAILURE() << "pipe";
            pids[i] = fork();
            if (pids[i] == 0) {
                close(pronto[0]);
                close(vai[1]);
                close(resultado[i][0]);
                Filho(documento(static_cast<int>(i)), pronto[1], vai[0], resultado[i][1]);
            }
            close(resultado[i][1]);
        }
        close(pronto[1]);
        close(vai[0]);
        char b;
        for (int i = 0; i < n; ++i)
            EXPECT_EQ(read(pronto[0], &b, 1), 1) << "terminal " << i + 1 << " never got ready";
        const std::string todos(r.size(), 'g');
        EXPECT_EQ(write(vai[1], todos.data(), todos.size()), static_cast<ssize_t>(todos.size()));
        close(pronto[0]);
        close(vai[1]);
        for (size_t i = 0; i < r.size(); ++i) {
            int st = 0;
            waitpid(pids[i], &st, 0);
            EXPECT_TRUE(WIFEXITED(st) && WEXITSTATUS(st) == 0) << "terminal " << i + 1 << ": " << st;
            char buf[64] = {};
            if (read(resultado[i][0], buf, sizeof buf - 1) > 0)
                std::istringstream(buf) >> r[i].escritos >> r[i].existe >> r[i].outras;
            close(resultado[i][0]);
        }
        return r;
    }

    Grade itens, agrupamentos;
    std::string nome;
    std::string origem_ = "V";
    // A store document's committed quantities not (yet) blocked.
    double semBloqueio_ = 0;

    // The statement that checks document 1 of the origin in one snapshot (a
    // killed client's last COMMIT may still land on the server between two
    // statements): how many lines, the highest number, the lines not whole,
    // then two figures of the origin's own.
    std::string Conferencia() const {
        if (origem_ == "V")
            // The lines without their cascade row, and the cascade rows.
            return "SELECT COUNT(*), ISNULL(MAX(T.Item), 0), ISNULL(SUM(CASE WHEN ABS(T.ValTotal - T.QtdMat * "
                   "T.ValUnit) > 0.000001 OR T.NatOper <> 5102 OR T.SitItem <> '0' OR T.CodMat2 = '' OR T.DscMat = "
                   "'' OR T.UndMat = '' OR T.Item % 10 <> 0 THEN 1 ELSE 0 END), 0), ISNULL(SUM(CASE WHEN D.ITEM IS "
                   "NULL THEN 1 ELSE 0 END), 0), (SELECT COUNT(*) FROM TBPEVDC WHERE EMPRESA = 1 AND NUMPED = 1) "
                   "FROM TBPEVIT T LEFT JOIN TBPEVDC D ON (D.EMPRESA = T.Empresa AND D.NUMPED = T.NumPed AND D.ITEM "
                   "= T.Item) WHERE T.Empresa = 1 AND T.NumPed = 1";
        if (origem_ == "C")
            return "SELECT COUNT(*), ISNULL(MAX(Item), 0), ISNULL(SUM(CASE WHEN CodMat2 = '' OR DscMat = '' OR "
                   "QtdMat <= 0 OR QtdRec <> QtdMat OR Item % 10 <> 0 THEN 1 ELSE 0 END), 0), 0, 0 FROM TBPECIT "
                   "WHERE Empresa = 1 AND NumPed = 1 AND CodFor = 101";
        // What the lines add up to, and what the stock holds blocked.
        return "SELECT COUNT(*), ISNULL(MAX(Item), 0), ISNULL(SUM(CASE WHEN ABS(ValTotal - QtdMat * ValUnit) > "
               "0.000001 OR CodMat2 = '' OR QtdMat <= 0 OR Item % 100 <> 0 THEN 1 ELSE 0 END), 0), "
               "ISNULL(SUM(QtdMat), 0), (SELECT SUM(QtdItBloq) FROM TBMAT WHERE Empresa = 1) FROM TBDOCIT WHERE "
               "Empresa = 1 AND Seq = 1";
    }

    // What the database holds for document 1 of the origin, checked whole:
    // how many items it has.
    int Confere() {
        EXPECT_TRUE(db->Conecta()) << ComunicaAtual().Msg;
        if (GetParam() == Kind::Sqlite) {
            EXPECT_EQ(CStr(Um("PRAGMA integrity_check")), "ok");
        } else if (origem_ == "V") {
            // Every row reachable through its primary key, and every key a row.
            for (const char* indice : {"tbpevit_pkey", "tbpevdc_pkey"}) {
                Um(std::string("SELECT bt_index_check('") + indice + "'::regclass, true)");
                EXPECT_EQ(ComunicaAtual().Status, "00") << ComunicaAtual().Msg;
            }
        }
        Comunica& c = ComunicaAtual();
        c.Transacao = "REQUERY";
        c.Cursor = 0;
        c.Dados = Conferencia();
        ExecutaComunica();
        EXPECT_EQ(c.Status, "00") << c.Msg;
        const Valor linha = c.Retorno;
        const int n = CInt(linha[0]);
        // Numbers with no gap: a killed item's number is taken again.
        EXPECT_EQ(CDbl(linha[1]), (origem_ == "D" ? 100.0 : 10.0) * n) << "numbers with no gap";
        EXPECT_EQ(CInt(linha[2]), 0) << "a line not whole";
        if (origem_ == "V") {
            EXPECT_EQ(CInt(linha[3]), 0) << "a line without its cascade row";
            EXPECT_EQ(CInt(linha[4]), n) << "a cascade row without its line";
        } else if (origem_ == "D") {
            const double escrito = CDbl(linha[3]), bloqueado = CDbl(linha[4]);
            EXPECT_LE(bloqueado, escrito) << "more blocked than the committed items";
            // A kill between an item's commit and its block's misses that
            // one block: never more than one item's quantity per kill.
            EXPECT_LE(escrito - bloqueado - semBloqueio_, static_cast<double>(itens.Rows() - 1))
                << "more than one block missed by one kill";
            semBloqueio_ = escrito - bloqueado;
        }
        FechaConexao();
        return n;
    }

    void MataAoAcaso(const std::string& origem);
};

// 200 kills at random moments of a generation of the origin's document,
// each followed by a whole check of what is there.
void Robustez::MataAoAcaso(const std::string& origem) {
    constexpr int Linhas = 12, Mortes = 200;
    if (GetParam() == Kind::Postgres) db->Direto("CREATE EXTENSION IF NOT EXISTS amcheck SCHEMA public");
    Prepara(Linhas, origem);
    if (HasFatalFailure()) return;
    // One whole run gives the time a generation takes.
    auto roda = [&](std::chrono::microseconds espera) {
        int p[2];
        EXPECT_EQ(pipe(p), 0);
        const pid_t pid = fork();
        if (pid == 0) {
            close(p[0]);
            Filho(0, p[1], -1, -1);
        }
        close(p[1]);
        char b;
        const bool comecou = read(p[0], &b, 1) == 1;
        const auto t0 = std::chrono::steady_clock::now();
        if (espera.count() >= 0) {
            std::this_thread::sleep_for(espera);
            kill(pid, SIGKILL);
        }
        int st = 0;
        waitpid(pid, &st, 0);
        close(p[0]);
        EXPECT_TRUE(comecou);
        if (espera.count() < 0) {
            EXPECT_TRUE(WIFEXITED(st) && WEXITSTATUS(st) == 0) << st;
        }
        return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - t0);
    };
    const auto inteira = roda(std::chrono::microseconds(-1));
    // A whole run writes every row the origin takes (a purchase or store
    // document leaves out a product not available).
    int antes = Confere();
    const int porRodada = antes;
    ASSERT_GE(porRodada, origem == "V" ? Linhas : Linhas - 1);

    const unsigned semente = static_cast<unsigned>(std::random_device{}());
    SCOPED_TRACE("seed " + std::to_string(semente));
    std::mt19937 aleatorio(semente);
    std::uniform_int_distribution<long> momento(0, inteira.count());
    for (int k = 0; k < Mortes && !HasFailure(); ++k) {
        roda(std::chrono::microseconds(momento(aleatorio)));
        const int agora = Confere();
        EXPECT_GE(agora, antes) << "a committed item was lost";
        antes = agora;
    }
    EXPECT_GT(antes, porRodada) << "the kills never let an item through";
}

TEST_P(Robustez, ProcessoMortoDeixaSoItensInteiros) { MataAoAcaso("V"); }
TEST_P(Robustez, ProcessoMortoNaCompraDeixaSoItensInteiros) { MataAoAcaso("C"); }
// A store document's item and its block are two units: a kill between them
// misses that one block, never more, and never blocks more than is written.
TEST_P(Robustez, ProcessoMortoNoDocumentoComBloqueioPerdeNoMaximoUmBloqueio) { MataAoAcaso("D"); }

TEST_P(Robustez, DoisProcessosNoMesmoDocumentoNaoRepetemNumeros) {
    constexpr int Linhas = 30, Rodadas = 4;
    Prepara(Linhas);
    int colisoes = 0, antes = 0;
    for (int r = 0; r < Rodadas && !HasFailure(); ++r) {
        // Both have read the last item number when they go.
        int escritos = 0;
        for (const Relato& t : Juntos(2, [](int) { return 0; })) {
            EXPECT_EQ(t.escritos + t.existe, Linhas) << "every marked row is written or reported";
            EXPECT_EQ(t.outras, 0) << "no other message";
            escritos += t.escritos;
            colisoes += t.existe;
        }
        const int agora = Confere();
        EXPECT_EQ(agora - antes, escritos) << "what each says it wrote is what is there";
        antes = agora;
    }
    EXPECT_GT(colisoes, 0) << "the two never met";
}

// Eight terminals block the same two products at the same moment, round
// after round, each into a store document of its own: every block counts.
TEST_P(Robustez, OitoTerminaisAoMesmoTempoSomamCadaBloqueio) {
    constexpr int Processos = 8, Rodadas = 5;
    db->Direto("UPDATE TBMAT SET QtdItAtu = 100000, QtdItBloq = 0 WHERE Empresa = 1");
    Ajuste("BLOQUEIA ITENS", "SIM");
    // Store documents 2..8 as copies of document 1.
    std::string nomes, valores;
    std::stringstream lista(A_MTBDOC_t::Colunas().Lista());
    for (std::string c; std::getline(lista, c, ',');) {
        nomes += (nomes.empty() ? "" : ", ") + Apara(c);
        valores += (valores.empty() ? "" : ", ") + (Normaliza(c) == "SEQ" ? std::string("%d") : Apara(c));
    }
    for (int seq = 2; seq <= Processos; ++seq) {
        std::string v = valores;
        v.replace(v.find("%d"), 2, std::to_string(seq));
        db->Direto("INSERT INTO TBDOC (" + nomes + ") SELECT " + v + " FROM TBDOC WHERE Empresa = 1 AND Seq = 1");
    }
    db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, Qtd, UndItem, "
               "QtdUnd, Valor, STTR, Tipo) VALUES (1, 'BLOQ', 'Bloqueio', 1, '1001', 'x', '7891234100100', 1, "
               "'UN', 1, 1, 0, 1), (1, 'BLOQ', 'Bloqueio', 2, '1002', 'y', '7891234100200', 2, 'UN', 1, 1, 0, 1)");
    Carrega(*componente, "D", 2, VendaSP, "BLOQ", itens, agrupamentos, nome);
    ASSERT_EQ(itens.Rows(), 3);
    componente.reset();

    for (int r = 0; r < Rodadas && !HasFailure(); ++r)
        for (const Relato& t : Juntos(Processos, [](int i) { return i + 1; })) {
            EXPECT_EQ(t.escritos, 2) << "a terminal did not write both items";
            EXPECT_EQ(t.existe + t.outras, 0) << "a terminal reported something";
        }
    ASSERT_TRUE(db->Conecta());
    for (const auto& [produto, qtd] : {std::pair{"1001", 1.0}, std::pair{"1002", 2.0}}) {
        const std::string p = std::string("'") + produto + "'";
        const double escrito = CDbl(Um("SELECT ISNULL(SUM(QtdMat), 0) FROM TBDOCIT WHERE Empresa = 1 AND CodMat2 = " + p));
        EXPECT_EQ(escrito, Processos * Rodadas * qtd);
        EXPECT_EQ(CDbl(Um("SELECT QtdItBloq FROM TBMAT WHERE Empresa = 1 AND CodItem = " + p)), escrito)
            << "a block of " << produto << " was lost";
    }
}

// Hostile rows in one process.
class ValoresHostis : public GeracaoDemo {};

TEST_P(ValoresHostis, NulosTextosLongosQuantidadesNegativasSituacaoEAliquotaAbsurdas) {
    const std::string longo(700, 'D');
    db->Direto("UPDATE TBMATEQ SET UndItem = NULL, ClasFiscal = NULL, IPI = NULL, GrpItem = NULL, "
               "PercIsen = NULL, Dispon = NULL WHERE Empresa = 1 AND CodItem = '1001'");
    db->Direto("UPDATE TBMAT SET CCusto = NULL, PerComis = NULL, NatOper = NULL, DscItem = '" + longo +
               "' WHERE Empresa = 1 AND CodItem = '1001'");
    db->Direto("UPDATE TBMATAG SET Qtd = -3 WHERE Empresa = 1 AND Codigo = '000108' AND CodItem = '1012'");
    db->Direto("UPDATE TBMATEQ SET SitTrib = 'x' WHERE Empresa = 1 AND CodItem = '1015'");
    db->Direto("UPDATE TBMATEQ SET SitTrib = '1', PercIsen = 1e300 WHERE Empresa = 1 AND CodItem = '1063'");
    db->Direto("UPDATE TBICM SET PERCICMS = 1e300, PERCICMSF = 1e300 WHERE EMPRESA = 1 AND CODIGO = 1");
    db->Direto("UPDATE TBMATEQ SET SitTrib = '1', PercIsen = 1 WHERE Empresa = 1 AND CodItem = '1057'");
    auto marcaTudo = [](TolvanF01& f) { f.sbMarcarTodosDaTela(); };

    // Store document: the two products whose taxes cannot be worked out are
    // reported by Calcula_Tributos and still written, without taxes.
    EXPECT_EQ(Gera("D", VendaSP, "000108", 1, marcaTudo, 2), 0);
    std::vector<std::string> t = Textos();
    EXPECT_EQ(std::count(t.begin(), t.end(), "Atenção! erro não previsto na função - Calcula_Tributos"), 2);
    EXPECT_EQ(t.size(), 2u);
    EXPECT_EQ(ItensGerados().size(), 5u);
    A_MTBDOCIT_t d;
    ASSERT_TRUE(Le(d, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND CodMat2 = '1015'"));
    EXPECT_EQ(Apara(d.SitTrib.str()), "");
    EXPECT_EQ(d.PercICMS, 0);
    ASSERT_TRUE(Le(d, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND CodMat2 = '1012'"));
    EXPECT_EQ(d.QtdMat, -3);
    EXPECT_EQ(d.ValTotal, -3 * d.ValUnit);
    ASSERT_TRUE(Le(d, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND CodMat2 = '1057'"));
    EXPECT_EQ(d.PercICMS, 1e300) << "an absurd rate is taken as it is";

    // Sales order over 000101's first product: NULLs read as blanks and
    // zeros, the 700-character description cut to the field.
    db->mensagens->Limpa();
    EXPECT_EQ(Gera("V", VendaSP, "000101", 1,
                   [](TolvanF01& f) {
                       for (int r = 1; r < f.GCon1.Rows(); ++r)
                           f.GCon1.DefineTextMatrix(r, 0,
                                                    Apara(f.GCon1.TextMatrix(r, 9)) == "1001" ? "*" : "");
                   }),
              0);
    A_MTBPEVIT_t v;
    ASSERT_TRUE(Le(v, "TBPEVIT", "Empresa = 1 AND NumPed = 1 AND CodMat2 = '1001'"));
    EXPECT_EQ(v.DscMat.str(), std::string(100, 'D'));
    EXPECT_EQ(Apara(v.UndMat.str()) + Apara(v.CCusto.str()) + Apara(v.GrpMat.str()), "");
    EXPECT_EQ(v.NatOper, 50) << "\"5\" followed by a stock NatOper of 0";

    // A sales item whose tax code overflows ends the loop with the report;
    // so does one whose situation is not a number: the first of them met.
    db->mensagens->Limpa();
    Gera("V", VendaSP, "000108", 1);
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto, "Atenção! erro não previsto na função - GeraVenda");

    // Purchase: a situation outside 0-4 takes no substitution and is written.
    db->mensagens->Limpa();
    EXPECT_EQ(Gera("C", Valor::Lista{1102, 101}, "000108", 1, marcaTudo), 0);
    A_MTBPECIT_t c;
    ASSERT_TRUE(Le(c, "TBPECIT", "Empresa = 1 AND NumPed = 1 AND CodMat2 = '1015'"));
    EXPECT_EQ(c.SitTrib, "x");
    EXPECT_EQ(c.PercICMSS, 0);
}

ZTOLVAN_NOS_DOIS_BANCOS(Robustez);
ZTOLVAN_NOS_DOIS_BANCOS(ValoresHostis);

} // namespace
