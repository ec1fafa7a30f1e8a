#include <array>

#include "common/conversao.h"
#include "common/erro.h"
#include "common/formato.h"
#include "common/mensagens.h"
#include "common/portas.h"
#include "common/texto.h"
#include "data/banco_dados.h"
#include "data/despachante.h"
#include "data/modules/modulos.h"
#include "data/seguranca/seguranca_banco.h"
#include "entry/empresa.h"
#include "entry/sessao.h"
#include "entry/settings/configuracao.h"
#include "entry/telas_componente.h"
#include "ztolvan/consultalista.h"
#include "ztolvan/versao.h"

namespace ztolvan {
namespace {

// The host context that ZDadosVendas carries, read whole before any of it
// reaches Sessao so that a malformed array leaves nothing half-filled.
struct DadosDoHost {
    int16_t NatOper = 0;
    std::array<std::string, 7> textos;
    int16_t DadosVenda2 = 0;
    int32_t CodFor = 0;
};

DadosDoHost LeDadosVendas(const std::string& origem, const Valor* dados) {
    DadosDoHost d;
    if (origem != "V" && origem != "D" && origem != "C") return d;
    if (!dados || !dados->eLista()) throw ErroExecucao(13, "ZDadosVendas não é um vetor");
    const Valor& v = *dados;
    d.NatOper = CInt(v[0]);
    if (origem == "C") {
        d.CodFor = CLng(v[1]);
        return d;
    }
    d.textos[1] = CStr(v[1]);
    d.DadosVenda2 = CInt(v[2]);
    for (size_t i = 3; i <= 6; ++i)
        d.textos[i] = CStr(v[i]);
    return d;
}

void GuardaDadosVendas(const std::string& origem, const DadosDoHost& d, Sessao& s) {
    if (origem == "V" || origem == "D") {
        s.NatOper = d.NatOper;
        s.DadosVenda1 = d.textos[1];
        s.DadosVenda2 = d.DadosVenda2;
        s.DadosVenda3 = d.textos[3];
        s.DadosVenda4 = d.textos[4];
        s.DadosVenda5 = d.textos[5];
        s.DadosVenda6 = d.textos[6];
    } else if (origem == "C") {
        s.NatOper = d.NatOper;
        s.CodFor = d.CodFor;
    }
}

// After a failed call the host context of the document is not trusted.
void EsqueceDadosVendas(Sessao& s) {
    s.NatOper = 0;
    s.DadosVenda1.clear();
    s.DadosVenda2 = 0;
    s.DadosVenda3.clear();
    s.DadosVenda4.clear();
    s.DadosVenda5.clear();
    s.DadosVenda6.clear();
    s.CodFor = 0;
}

void RelataErro(int linha, const std::string& descricao) {
    MostraMensagem("Atenção! erro não previsto na função - ZProcessa", msg::Critico, "Aviso",
                   "Erro na linha : " + std::to_string(linha) + " - " + descricao +
                       " na função ZProcessa no Formulário consultalista",
                   SessaoAtual().Operador, "");
}

} // namespace

std::string consultalista::Versao() {
    return std::to_string(versao::Major) + "." + std::to_string(versao::Minor) + "." +
           Formata(static_cast<double>(versao::Revisao), formatos::Revisao);
}

consultalista::consultalista() {
    try {
        std::string servidor, banco, usuario = "veltra", senha = "tolquemarin";
        int16_t silencioso = 0;
        AbreConexao(servidor, banco, usuario, senha, silencioso);
        ZeraCursoresModulos();
        // The rights table is the security component unless the host brought its own.
        if (!PortasAtuais().seguranca)
            PortasAtuais().seguranca = FabricaSegurancaBanco(std::make_shared<AutorizacaoSemDialogo>());
        {
            clsBancoDados bd;
            bd.fcAbreBancoDadosVeltra(1);
            bd.fcExecutaComando(1, "", false);
        }
        SessaoAtual().Versao = Versao();
    } catch (const std::exception& e) {
        MostraMensagem("Ocorreu um Erro Crítico - " + std::string(e.what()), msg::Critico,
                       "Class_Initialize - ztolvan");
    }
}

consultalista::~consultalista() {
    try {
        FechaConexao();
    } catch (...) {
    }
}

void consultalista::ZProcessa(int16_t& zEmpresa, std::string& zoperador, std::string&, int16_t& zopcao,
                              int32_t& ZCodigo, std::string& Zorigem, int32_t& Znumdoc, int16_t& Ztpmov,
                              int16_t& Zstatusret, int16_t& zstatus, std::string& zstatusmens,
                              Valor* ZDadosVendas, int16_t* ztipodepreco, bool*, bool*) {
    Sessao& s = SessaoAtual();
    int linha = 0;
    try {
        linha = 10;
        s.OrigemTrim = Apara(Zorigem);
        s.Operador = Apara(zoperador);
        linha = 20;
        s.StatusRet = 1;
        zstatus = 0;
        zstatusmens.clear();
        s.OrigemDocumento = false;
        linha = 30;
        GuardaDadosVendas(Zorigem, LeDadosVendas(Zorigem, ZDadosVendas), s);
        s.OrigemDocumento = Zorigem == "V" || Zorigem == "D" || Zorigem == "C" || Zorigem == "P";
        linha = 40;
        s.Origem = Zorigem;
        s.NumDoc = Znumdoc;
        s.TpMov = Ztpmov;
        s.Empresa = zEmpresa;
        linha = 50;
        LerAjuste(Ajuste::EmpresaOrigem);
        if (s.EmpresaOrigem == 0) s.EmpresaOrigem = s.Empresa;
        s.EmpresaConsulta = s.EmpresaOrigem;
        linha = 60;
        LerAjuste(Ajuste::PrecoVenda);
        LerAjuste(Ajuste::TipoPrecoCompra);
        LerAjuste(Ajuste::BloqueiaItens);
        linha = 70;
        LerEmpresa();
        linha = 80;
        LerAjuste(Ajuste::CustoPrecoEmpresaOrigem);
        s.EmpresaPreco = Normaliza(s.CustoPrecoEmpresaOrigem) == "NAO" ? s.Empresa : s.EmpresaOrigem;
        linha = 90;
        const int16_t tipoDado = ztipodepreco ? *ztipodepreco : 0;
        if (tipoDado > 0)
            s.TipoPreco = TextoDecimal(tipoDado);
        else
            DefineTipoPreco();
        linha = 100;
        LerAjuste(Ajuste::TamanhoCodigoItem);
        linha = 110;
        if (zopcao == 1) {
            if (Zorigem == "F") {
                TelasAtuais().MostraPrecos();
            } else if (Zorigem == "P") {
                TelasAtuais().MostraConsulta();
                // Only a whole number can be handed back; anything else is none.
                int32_t codigo = 0;
                ZCodigo = LeInteiro32(s.DadosRetorno, codigo) ? codigo : 0;
            } else {
                TelasAtuais().MostraConsulta();
            }
        }
        linha = 120;
        if (Zorigem == "F" && ZDadosVendas) *ZDadosVendas = s.DadosRetorno;
        linha = 130;
        Zstatusret = static_cast<int16_t>(s.StatusRet);
    } catch (const ErroExecucao& e) {
        if (linha == 30) EsqueceDadosVendas(s);
        RelataErro(linha, e.Descricao());
        Zstatusret = 1;
    } catch (const std::exception& e) {
        RelataErro(linha, e.what());
        Zstatusret = 1;
    }
    zstatus = 0;
    zstatusmens.clear();
}

} // namespace ztolvan
