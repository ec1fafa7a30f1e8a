#include "entry/settings/configuracao.h"

#include <variant>

#include "common/armazem_maquina.h"
#include "common/contexto.h"
#include "common/conversao.h"
#include "common/erro.h"
#include "common/log.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "entry/sessao.h"

namespace ztolvan {
namespace {

struct EstadoConfiguracao {
    bool semTabelaRegistro = false;
};

enum class Tipo { Numero16, Texto, SimNao };

struct Definicao {
    Ajuste ajuste;
    const char* chave;
    Valor padrao;
    Tipo tipo;
    std::variant<int16_t Sessao::*, std::string Sessao::*> campo;
    // A value blank after trimming counts as the default.
    bool brancoEPadrao = false;
};

const Definicao& Definicao_(Ajuste a) {
    static const Definicao tabela[] = {
        {Ajuste::EmpresaOrigem, "Empresa Origem", Valor(int16_t{0}), Tipo::Numero16, &Sessao::EmpresaOrigem},
        {Ajuste::PrecoVenda, "PRECO VENDA", Valor(int16_t{1}), Tipo::Numero16, &Sessao::PrecoVenda},
        {Ajuste::TipoPrecoCompra, "TIPO PRECO COMPRA", Valor(" "), Tipo::Texto, &Sessao::TipoPrecoCompra},
        {Ajuste::BloqueiaItens, "BLOQUEIA ITENS", Valor("NAO"), Tipo::SimNao, &Sessao::BloqueiaItens},
        {Ajuste::CustoPrecoEmpresaOrigem, "CUSTOPRECO EMPRESA ORIGEM", Valor("SIM"), Tipo::SimNao,
         &Sessao::CustoPrecoEmpresaOrigem},
        {Ajuste::PrecoAgrupamento, "Preco Agrupamento", Valor(int16_t{0}), Tipo::Texto, &Sessao::TipoPreco},
        {Ajuste::TamanhoCodigoItem, "Tamanho Codigo Item", Valor(int16_t{0}), Tipo::Texto,
         &Sessao::TamanhoCodigoItem},
        {Ajuste::DescricaoAgrupamento, "Descricao Agrupamento Produto", Valor("NAO"), Tipo::SimNao,
         &Sessao::DescricaoAgrupamento},
        {Ajuste::QtdPosicoesAgrupamento, "Qtd Posicoes Agrupamento", Valor(int16_t{0}), Tipo::Texto,
         &Sessao::QtdPosicoesAgrupamento},
        {Ajuste::CompraPrcVen, "COMPRA PRCVEN", Valor("NAO"), Tipo::SimNao, &Sessao::CompraPrcVen},
        {Ajuste::DescontoCascata, "DESCONTO CASCATA", Valor("NAO"), Tipo::SimNao, &Sessao::DescontoCascata},
        {Ajuste::CobraICMSSubstituto, "COBRA ICMS SUBSTITUTO", Valor("SIM"), Tipo::SimNao,
         &Sessao::CobraICMSSubstituto},
        {Ajuste::ICMSAntecipado, "ICMS Antecipado", Valor("NAO"), Tipo::SimNao, &Sessao::ICMSAntecipado,
         true},
        {Ajuste::ImpressoraMatricial, "IMPRESSORA MATRICIAL", Valor("NAO"), Tipo::SimNao,
         &Sessao::ImpressoraMatricial},
    };
    return tabela[static_cast<size_t>(a)];
}

const char* Projeto = "ztolvan";

void Registra(const std::string& rotina, std::string texto) {
    Valor t = std::move(texto);
    std::string p = Projeto, r = rotina;
    GravaLog(t, p, r);
}

} // namespace

bool& SemTabelaRegistro() { return Contexto::Atual().Parte<EstadoConfiguracao>().semTabelaRegistro; }

const char* ChaveDoAjuste(Ajuste a) { return Definicao_(a).chave; }

std::string Registro_Consultar_Dados(const std::string& Usuario, const std::string& Chave) {
    Comunica& c = ComunicaAtual();
    c.Cursor = 0;
    c.Transacao = "REQUERY";
    c.Dados =
        std::string("SELECT usuario, chave, valor, dtinc, hrinc, dtatu, hratu, usuarioatu, usuarioinc") +
        " FROM TBREGSRV WHERE usuario = '" + DobraAspas(Apara(Usuario)) + "'" + " AND chave = '" +
        DobraAspas(Apara(Chave)) + "'";
    ExecutaComunica();
    std::string valor;
    if (c.Status == status::Ok) {
        valor = c.Retorno.tamanho() > 2 ? Apara(CStr(c.Retorno[2])) : std::string();
        SemTabelaRegistro() = false;
    } else if (c.Status == status::Falha) {
        SemTabelaRegistro() = true;
    } else {
        valor = c.Msg;
        Registra("Registro_Consultar_Dados", c.Msg);
    }
    return c.Status + "/" + valor;
}

Valor LerConfiguracao(const std::string& Chave, const Valor& Padrao) {
    if (!SemTabelaRegistro()) {
        const std::string r = Registro_Consultar_Dados(SessaoAtual().Operador, Chave);
        if (r.compare(0, 2, status::Ok) == 0) {
            std::string valor = r.size() > 3 ? r.substr(3) : std::string();
            if (Apara(valor).empty()) return Padrao;
            return valor;
        }
    }
    int16_t achou = 0;
    return LerRegistro(RaizMaquina, ChaveVeltra, Chave, Padrao, achou);
}

void LerAjuste(Ajuste a) {
    const Definicao& d = Definicao_(a);
    Sessao& s = SessaoAtual();
    Valor v = LerConfiguracao(d.chave, d.padrao);
    if (d.brancoEPadrao && Apara(CStr(v)).empty()) v = d.padrao;
    if (auto* campo = std::get_if<int16_t Sessao::*>(&d.campo)) {
        try {
            s.*(*campo) = CInt(v);
        } catch (const ErroExecucao& e) {
            // A stored value that is not a 16-bit number: the default serves,
            // and the log says which setting to mend.
            s.*(*campo) = CInt(d.padrao);
            Registra("LerConfiguracao", std::string("Configuração \"") + d.chave +
                                            "\" com valor inválido \"" + CStr(v) + "\" (" + e.Descricao() +
                                            "); usado o padrão " + CStr(d.padrao));
        }
    } else {
        s.*std::get<std::string Sessao::*>(d.campo) = CStr(v);
    }
}

} // namespace ztolvan
