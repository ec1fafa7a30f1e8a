// The demo data: a small supermarket chain in two states, with the shapes the
// screens and generators meet in practice (stock at zero or blocked, running
// and expired promotions, an inactive grouping, a grouping item whose product
// is gone, an item without a wholesale price).
#include <cmath>
#include <ctime>
#include <map>

#include "common/conversao.h"
#include "data/comunica.h"
#include "data/modules/modulo.h"
#include "data/modules/registros.h"
#include "data/schema/esquema.h"
#include "data/schema/executa_texto.h"
#include "data/seguranca/senha.h"

// Hand-laid tables: one row a line, kept as written.
// clang-format off
namespace ztolvan {
namespace {

std::string Data(int deslocamentoDias) {
    std::time_t agora = std::time(nullptr);
    std::tm t{};
    localtime_r(&agora, &t);
    t.tm_hour = 12; // away from any daylight-saving edge
    t.tm_mday += deslocamentoDias;
    std::mktime(&t);
    char buf[16];
    std::strftime(buf, sizeof buf, "%Y%m%d", &t);
    return buf;
}

double Centavos(double v) { return std::round(v * 100.0) / 100.0; }

struct Fornecedor {
    int32_t codigo;
    const char* razao;
    const char* fantasia;
    const char* cidade;
    const char* uf;
    int16_t flagIpi; // 1 or 2: how purchase generation treats IPI
};

const Fornecedor Fornecedores[] = {
    {101, "Alimentos Brasil S.A.", "Alimentos Brasil", "Campinas", "SP", 1},
    {102, "Higiene & Cia Indústria Ltda", "Higiene & Cia", "São Paulo", "SP", 2},
    {103, "Papelaria Escolar Nacional Ltda", "Escolar Nacional", "Curitiba", "PR", 2},
    {104, "Frigorífico Boi Gordo Ltda", "Boi Gordo", "Uberlândia", "MG", 1},
    {105, "Limpeza Total Química Ltda", "Limpeza Total", "Diadema", "SP", 2},
    {106, "Bebidas do Vale Distribuidora Ltda", "Bebidas do Vale", "Contagem", "MG", 1},
    {107, "Laticínios Serra Verde Ltda", "Serra Verde", "Juiz de Fora", "MG", 1},
};

const Fornecedor& FornecedorDe(int32_t codigo) {
    for (const auto& f : Fornecedores)
        if (f.codigo == codigo) return f;
    return Fornecedores[0];
}

struct Produto {
    const char* codigo;
    const char* descricao;
    const char* unidade;
    double preco;
    int32_t fornecedor;
    const char* grupo;
    const char* ncm;
    int16_t icms; // TBICM code
};

// ICMS codes: 1 18%, 2 12%, 3 exempt, 4 substitution, 5 reduced 7%.
const Produto Produtos[] = {
    {"1001", "Arroz agulhinha tipo 1 5kg", "PC", 24.90, 101, "MERCEARIA", "10063021", 5},
    {"1002", "Feijão carioca tipo 1 1kg", "PC", 8.49, 101, "MERCEARIA", "07133399", 5},
    {"1003", "Açúcar cristal 5kg", "PC", 21.90, 101, "MERCEARIA", "17019900", 5},
    {"1004", "Café torrado e moído 500g", "PC", 16.90, 101, "MERCEARIA", "09012100", 1},
    {"1005", "Óleo de soja 900ml", "UN", 7.99, 101, "MERCEARIA", "15079011", 5},
    {"1006", "Macarrão espaguete 500g", "PC", 4.59, 101, "MERCEARIA", "19021900", 1},
    {"1007", "Farinha de trigo 1kg", "PC", 5.49, 101, "MERCEARIA", "11010010", 5},
    {"1008", "Sal refinado iodado 1kg", "PC", 2.99, 101, "MERCEARIA", "25010020", 3},
    {"1009", "Leite UHT integral 1L", "UN", 4.89, 107, "LATICINIOS", "04012010", 3},
    {"1010", "Extrato de tomate 340g", "UN", 3.29, 101, "MERCEARIA", "20029090", 1},
    {"1011", "Sardinha em óleo 125g", "UN", 5.99, 101, "MERCEARIA", "16041310", 1},
    {"1012", "Biscoito cream cracker 400g", "PC", 4.99, 101, "MERCEARIA", "19053100", 1},
    {"1013", "Fubá mimoso 1kg", "PC", 3.99, 101, "MERCEARIA", "11022000", 5},
    {"1014", "Margarina com sal 500g", "UN", 7.49, 107, "LATICINIOS", "15171000", 1},
    {"1015", "Achocolatado em pó 400g", "UN", 8.99, 101, "MERCEARIA", "18069000", 1},
    {"1016", "Detergente líquido neutro 500ml", "UN", 2.49, 105, "LIMPEZA", "34022000", 1},
    {"1017", "Sabão em pó 1kg", "CX", 12.90, 105, "LIMPEZA", "34022000", 1},
    {"1018", "Água sanitária 2L", "UN", 6.49, 105, "LIMPEZA", "28289011", 1},
    {"1019", "Desinfetante lavanda 2L", "UN", 9.90, 105, "LIMPEZA", "38089419", 1},
    {"1020", "Amaciante de roupas 2L", "UN", 14.90, 105, "LIMPEZA", "38099190", 1},
    {"1021", "Esponja multiuso com 3", "PC", 4.49, 105, "LIMPEZA", "39249000", 1},
    {"1022", "Sabão em barra glicerinado com 5", "PC", 9.99, 105, "LIMPEZA", "34011190", 1},
    {"1023", "Limpador multiuso 500ml", "UN", 5.49, 105, "LIMPEZA", "34029039", 1},
    {"1024", "Saco de lixo 50L com 10", "PC", 7.99, 105, "LIMPEZA", "39232190", 1},
    {"1025", "Pano de chão alvejado", "UN", 5.99, 105, "LIMPEZA", "63071000", 1},
    {"1026", "Papel higiênico folha dupla com 12", "PC", 18.90, 102, "HIGIENE", "48181000", 1},
    {"1027", "Creme dental 90g", "UN", 4.29, 102, "HIGIENE", "33061000", 1},
    {"1028", "Sabonete em barra 90g", "UN", 2.19, 102, "HIGIENE", "34011190", 1},
    {"1029", "Xampu 350ml", "UN", 13.90, 102, "HIGIENE", "33051000", 1},
    {"1030", "Condicionador 350ml", "UN", 14.90, 102, "HIGIENE", "33059000", 1},
    {"1031", "Desodorante aerossol 150ml", "UN", 12.49, 102, "HIGIENE", "33072010", 1},
    {"1032", "Escova de dentes macia", "UN", 6.99, 102, "HIGIENE", "96032100", 1},
    {"1033", "Fio dental 50m", "UN", 7.49, 102, "HIGIENE", "33062000", 1},
    {"1034", "Absorvente com abas com 8", "PC", 5.99, 102, "HIGIENE", "96190000", 1},
    {"1035", "Aparelho de barbear com 3", "PC", 9.99, 102, "HIGIENE", "82121020", 1},
    {"1036", "Caderno universitário 10 matérias", "UN", 24.90, 103, "ESCOLAR", "48202000", 1},
    {"1037", "Lápis preto nº 2", "UN", 1.20, 103, "ESCOLAR", "96091000", 1},
    {"1038", "Caneta esferográfica azul", "UN", 1.99, 103, "ESCOLAR", "96081000", 1},
    {"1039", "Borracha branca", "UN", 1.50, 103, "ESCOLAR", "40169200", 1},
    {"1040", "Apontador com depósito", "UN", 3.49, 103, "ESCOLAR", "82141000", 1},
    {"1041", "Régua 30cm", "UN", 2.49, 103, "ESCOLAR", "90178010", 1},
    {"1042", "Lápis de cor com 12 cores", "CX", 12.90, 103, "ESCOLAR", "96099000", 1},
    {"1043", "Cola branca 90g", "UN", 3.99, 103, "ESCOLAR", "35069900", 1},
    {"1044", "Tesoura escolar sem ponta", "UN", 6.90, 103, "ESCOLAR", "82130000", 1},
    {"1045", "Mochila escolar", "UN", 89.90, 103, "ESCOLAR", "42029200", 1},
    {"1046", "Estojo escolar duplo", "UN", 19.90, 103, "ESCOLAR", "42029200", 1},
    {"1047", "Picanha bovina resfriada", "KG", 69.90, 104, "ACOUGUE", "02013000", 2},
    {"1048", "Linguiça toscana", "KG", 22.90, 104, "ACOUGUE", "16010000", 2},
    {"1049", "Coxinha da asa de frango", "KG", 18.90, 104, "ACOUGUE", "02071400", 2},
    {"1050", "Carvão vegetal 5kg", "PC", 24.90, 101, "BAZAR", "44029000", 1},
    {"1051", "Sal grosso para churrasco 1kg", "PC", 3.49, 101, "MERCEARIA", "25010090", 3},
    {"1052", "Pão de alho com 8", "PC", 14.90, 101, "PADARIA", "19059090", 1},
    {"1053", "Farofa temperada 500g", "PC", 6.99, 101, "MERCEARIA", "11062000", 1},
    {"1054", "Cerveja pilsen lata 350ml", "UN", 3.99, 106, "BEBIDAS", "22030000", 4},
    {"1055", "Refrigerante de cola 2L", "UN", 9.49, 106, "BEBIDAS", "22021000", 4},
    {"1056", "Gelo em cubos 5kg", "PC", 12.00, 106, "BEBIDAS", "22019000", 1},
    {"1057", "Pão de forma tradicional 500g", "PC", 8.99, 101, "PADARIA", "19059010", 1},
    {"1058", "Requeijão cremoso 200g", "UN", 7.99, 107, "LATICINIOS", "04061090", 1},
    {"1059", "Queijo muçarela fatiado", "KG", 49.90, 107, "LATICINIOS", "04069010", 1},
    {"1060", "Presunto cozido fatiado", "KG", 39.90, 104, "FRIOS", "16024900", 1},
    {"1061", "Manteiga com sal 200g", "UN", 12.90, 107, "LATICINIOS", "04051000", 1},
    {"1062", "Geleia de morango 320g", "UN", 11.90, 101, "MERCEARIA", "20079910", 1},
    {"1063", "Suco de laranja integral 1L", "UN", 8.49, 106, "BEBIDAS", "20091200", 4},
};

const Produto* ProdutoDe(std::string_view codigo) {
    for (const auto& p : Produtos)
        if (codigo == p.codigo) return &p;
    return nullptr;
}

std::string CodEquiv(std::string_view codigo) { return "7891234" + std::string(codigo) + "00"; }

// A product the groupings still list but the stock no longer has.
constexpr const char* ProdutoRetirado = "1999";
// The only product without a wholesale (type 2) equivalence.
constexpr const char* SemPrecoAtacado = "1045";

enum class Promocao { Nenhuma, Vigente, Vencida, Futura };

Promocao PromocaoDe(std::string_view codigo) {
    for (const char* c : {"1004", "1005", "1017", "1020", "1029", "1047", "1054", "1062"})
        if (codigo == c) return Promocao::Vigente;
    for (const char* c : {"1011", "1030"})
        if (codigo == c) return Promocao::Vencida;
    if (codigo == std::string_view("1055")) return Promocao::Futura;
    return Promocao::Nenhuma;
}

struct ItemAgrupamento {
    const char* produto;
    double qtd;
};

struct Agrupamento {
    const char* codigo;
    const char* nome;
    const char* observacao;
    int16_t sttr; // non-zero: inactive
    int16_t tipo; // the grouping's price type
    bool naEmpresa2;
    std::vector<ItemAgrupamento> itens;
};

const std::vector<Agrupamento>& Agrupamentos() {
    static const std::vector<Agrupamento> a{
        {"000101", "Cesta básica tradicional", "Composição padrão para venda ao consumidor e doações.", 0, 1, true,
         {{"1001", 1}, {"1002", 2}, {"1003", 1}, {"1004", 1}, {"1005", 2}, {"1006", 3}, {"1007", 1}, {"1008", 1},
          {"1009", 6}, {"1010", 2}, {"1011", 2}, {"1012", 2}, {"1013", 1}}},
        {"000102", "Cesta básica econômica", "Inclui leite em pó, fora de linha: conferir antes de gerar.", 0, 1,
         false,
         {{"1001", 1}, {"1002", 1}, {"1003", 1}, {"1005", 1}, {"1006", 2}, {ProdutoRetirado, 1}, {"1014", 1}}},
        {"000103", "Kit limpeza da casa", "Produtos de limpeza para um mês.", 0, 1, true,
         {{"1016", 3}, {"1017", 1}, {"1018", 2}, {"1019", 1}, {"1020", 1}, {"1021", 1}, {"1023", 1}}},
        {"000104", "Kit escolar ensino fundamental", "Lista de material escolar do 1º ao 5º ano.", 0, 1, true,
         {{"1036", 2}, {"1037", 6}, {"1038", 4}, {"1039", 2}, {"1040", 1}, {"1041", 1}, {"1042", 1}, {"1043", 1},
          {"1044", 1}, {SemPrecoAtacado, 1}, {"1046", 1}}},
        {"000105", "Kit churrasco para 10 pessoas", "Carnes, acompanhamentos e bebidas.", 0, 1, true,
         {{"1047", 2}, {"1048", 2}, {"1049", 2}, {"1050", 2}, {"1051", 1}, {"1052", 2}, {"1053", 2}, {"1054", 24},
          {"1055", 4}, {"1056", 2}}},
        {"000106", "Kit higiene pessoal", "Itens de higiene para a família.", 0, 1, true,
         {{"1026", 1}, {"1027", 2}, {"1028", 4}, {"1029", 1}, {"1030", 1}, {"1031", 1}, {"1032", 2}, {"1033", 1}}},
        {"000107", "Kit café da manhã", "Café da manhã completo para quatro pessoas.", 0, 1, false,
         {{"1057", 1}, {"1058", 1}, {"1059", 0.5}, {"1060", 0.5}, {"1061", 1}, {"1062", 1}, {"1063", 1}, {"1004", 1},
          {"1009", 2}}},
        {"000108", "Kit lanche escolar", "Lanche da semana para uma criança.", 0, 1, false,
         {{"1012", 1}, {"1063", 2}, {"1015", 1}, {"1057", 1}, {"1058", 1}}},
        {"000109", "Kit faxina pesada", "Para a limpeza de fim de ano.", 0, 2, false,
         {{"1018", 2}, {"1019", 2}, {"1022", 1}, {"1025", 2}, {"1024", 2}, {"1016", 2}}},
        {"000110", "Kit bebidas para festa", "Para cerca de 30 convidados.", 0, 2, false,
         {{"1054", 48}, {"1055", 6}, {"1063", 4}, {"1056", 4}}},
        {"000111", "Ofertas da semana", "Produtos em promoção nesta semana.", 0, 1, false,
         {{"1004", 1}, {"1005", 1}, {"1017", 1}, {"1020", 1}, {"1029", 1}, {"1054", 12}, {"1062", 1}}},
        {"000112", "Cesta de Natal 2023", "Campanha encerrada.", 1, 1, false,
         {{"1004", 1}, {"1062", 1}, {"1061", 1}, {"1012", 2}, {"1063", 2}, {"1015", 1}}},
    };
    return a;
}

// Writes rows through prepared inserts, each prepared once.
class Gravador {
public:
    explicit Gravador(std::string& msg) : msg_(msg) {}
    bool ok() const { return ok_; }

    template <class R> void Grava(const char* tabela, const R& r) {
        Grava(modulos::InsertDe(tabela, R::Colunas()), R::Colunas().Valores(&r));
    }
    void Grava(const std::string& insert, Valor::Lista valores) {
        if (!ok_) return;
        int16_t& cursor = cursores_[insert];
        if (!cursor && !(cursor = Prepara(insert, msg_))) {
            ok_ = false;
            return;
        }
        ok_ = Executa(cursor, std::move(valores), msg_);
    }

private:
    std::string& msg_;
    bool ok_ = true;
    std::map<std::string, int16_t> cursores_;
};

void Empresas(Gravador& g) {
    A_MTBPAR_t p;
    p.Empresa = 1;
    p.RazSocial = "Supermercado Bom Preço Ltda";
    p.NomeFant = "Bom Preço";
    p.CGC = "12345678000190";
    p.InscEstad = "110042490114";
    p.Endereco = "Rua Augusta, 1500";
    p.Bairro = "Consolação";
    p.Cidade = "São Paulo";
    p.UF = "SP";
    p.Pais = "Brasil";
    p.CEP = "01305100";
    p.Tipo1 = "C";
    p.DDI1 = "55";
    p.DDD1 = "11";
    p.Telefone1 = "32145500";
    p.Atividade = "4711";
    p.PerCusFixo = 12;
    p.PerPis = 0.65;
    p.PerCofins = 3;
    p.PerCPMF = 0;
    p.PerIRPJ = 1.2;
    p.PerCSSL = 1.08;
    p.PisCumul = 1;
    p.CofinsCumul = 1;
    p.ValMinFatura = 50;
    g.Grava("TBPAR", p);

    p.Empresa = 2;
    p.RazSocial = "Atacadão Minas Distribuidora Ltda";
    p.NomeFant = "Atacadão Minas";
    p.CGC = "98765432000110";
    p.InscEstad = "0623079040081";
    p.Endereco = "Avenida Amazonas, 7200";
    p.Bairro = "Gameleira";
    p.Cidade = "Belo Horizonte";
    p.UF = "MG";
    p.CEP = "30510000";
    p.DDD1 = "31";
    p.Telefone1 = "33781200";
    p.Atividade = "4639";
    p.PerCusFixo = 8;
    p.PerPis = 1.65;
    p.PerCofins = 7.6;
    p.CritPrcVenda = 1;
    p.PisCumul = 0;
    p.CofinsCumul = 0;
    p.ValMinFatura = 300;
    g.Grava("TBPAR", p);
}

void TiposDePreco(Gravador& g) {
    const std::string ins = "INSERT INTO TBMATTP (TIPO, DESCRICAO) VALUES (?, ?)";
    g.Grava(ins, {1, "Varejo"});
    g.Grava(ins, {2, "Atacado"});
    g.Grava(ins, {3, "Especial"});
}

void Impostos(Gravador& g, int16_t empresa, const char* ufEmpresa) {
    struct Codigo {
        int16_t codigo;
        double icms, icmsf;
        const char* obs;
    };
    const Codigo codigos[] = {
        {1, 18, 18, "Tributado integralmente"}, {2, 12, 12, "Tributado com alíquota de 12%"},
        {3, 0, 0, "Isento"},                    {4, 18, 18, "Substituição tributária"},
        {5, 7, 7, "Base reduzida (cesta básica)"},
    };
    for (const auto& c : codigos) {
        A_MTBICM_t r;
        r.EMPRESA = empresa;
        r.CODIGO = c.codigo;
        r.PERCICMS = c.icms;
        r.PERCICMSF = c.icmsf;
        r.OBS = c.obs;
        g.Grava("TBICM", r);
    }
    // Substitution rates per destination state; code 1 has one state of its
    // own, the others none (the general rate holds).
    struct Uf {
        int16_t codigo;
        const char* uf;
        double icmsf;
    };
    const Uf ufs[] = {{4, "SP", 18}, {4, "MG", 18}, {4, "RJ", 20}, {4, "PR", 19.5}, {4, "BA", 20.5}, {1, "RJ", 20}};
    for (const auto& u : ufs) {
        A_MTBICMUF_t r;
        r.EMPRESA = empresa;
        r.CODIGO = u.codigo;
        r.UF = u.uf;
        r.PERCICMSF = std::string_view(u.uf) == ufEmpresa ? u.icmsf : u.icmsf + 0.5;
        r.CAMPOLIVRE1 = "Protocolo ICMS";
        r.STATUS = 0;
        g.Grava("TBICMUF", r);
    }
}

void Pessoas(Gravador& g, int16_t empresa) {
    struct Vendedor {
        int32_t codigo;
        const char* nome;
        const char* cargo;
        double comissao;
    };
    const Vendedor vendedores1[] = {{1, "Ana Paula Souza", "Vendedora", 2.5},
                                    {2, "João Carlos Lima", "Vendedor", 3},
                                    {3, "Márcia Gonçalves", "Gerente de vendas", 1.5}};
    const Vendedor vendedores2[] = {{1, "Roberto Araújo", "Vendedor externo", 2},
                                    {2, "Fernanda Ribeiro", "Vendedora", 2.5}};
    for (const auto& v : empresa == 1 ? std::vector<Vendedor>(std::begin(vendedores1), std::end(vendedores1))
                                      : std::vector<Vendedor>(std::begin(vendedores2), std::end(vendedores2))) {
        A_MTBVEN_t r;
        r.EMPRESA = empresa;
        r.CODVEND = v.codigo;
        r.CODGER = 3;
        r.NOME = v.nome;
        r.DEPTO = 1;
        r.CARGO = v.cargo;
        r.PERCOMIS = v.comissao;
        r.PERCOMIS2 = v.comissao / 2;
        r.QUOTAMINVEN = 15000;
        g.Grava("TBVEN", r);
    }
    static const std::string insRep =
        "INSERT INTO TBREP (EMPRESA, " + A_MTBREP_t::Colunas().Lista() + ") VALUES (?, ?, ?, ?, ?, ?, ?)";
    struct Representante {
        int32_t codigo;
        const char* razao;
        double comissao;
    };
    const Representante reps[] = {{10, empresa == 1 ? "Representações Paulista Ltda" : "Minas Representações Ltda", 4},
                                  {11, "Comercial Vale do Paraíba Ltda", 3.5}};
    for (const auto& p : reps) {
        A_MTBREP_t r;
        r.CODREPCOM = p.codigo;
        r.RAZSOCIAL = p.razao;
        r.PERCOMIS = p.comissao;
        r.PERCOMIS2 = p.comissao / 2;
        Valor::Lista v{empresa};
        for (auto& x : A_MTBREP_t::Colunas().Valores(&r)) v.push_back(std::move(x));
        g.Grava(insRep, std::move(v));
    }
    for (const auto& f : Fornecedores) {
        A_MTBFOR_t r;
        r.EMPRESA = empresa;
        r.CODFORN = f.codigo;
        r.FISJURID = "J";
        r.RAZSOCIAL = f.razao;
        r.NOMEFANT = f.fantasia;
        r.ENDERECO = "Rodovia dos Bandeirantes, km 42";
        r.BAIRRO = "Distrito Industrial";
        r.CIDADE = f.cidade;
        r.UF = f.uf;
        r.PAIS = "Brasil";
        r.CEP = "13200000";
        r.CGCCPF = "11222333000" + std::to_string(f.codigo);
        r.NOMECOMPR = "Carlos Mendes";
        r.CODCOMPR = 1;
        r.TIPODOC = "N";
        r.FLAGIPI = f.flagIpi;
        r.STTR = 0;
        g.Grava("TBFOR", r);
    }
}

void TiposDeDocumento(Gravador& g, int16_t empresa) {
    struct Tipo {
        int16_t codigo;
        const char* descricao;
        const char* flges;
        const char* flgcmed;
        const char* flgfc;
    };
    // One type per FLGES/FLGCMED pair that store documents tell apart, and
    // one outside them.
    const Tipo tipos[] = {
        {1, "Venda ao consumidor", "1", "0", "0"}, {2, "Venda com reserva de estoque", "2", "0", "1"},
        {3, "Entrada com custo médio", "1", "1", "0"}, {4, "Devolução com custo médio", "2", "1", "1"},
        {5, "Transferência entre lojas", "3", "0", "0"},
    };
    for (const auto& t : tipos) {
        A_MTBPNF_t r;
        r.EMPRESA = empresa;
        r.CODIGO = t.codigo;
        r.DESCRICAO = t.descricao;
        r.FLGES = t.flges;
        r.FLGCMED = t.flgcmed;
        r.FLGFC = t.flgfc;
        r.FLGCUNIT = "0";
        r.FLGDUP = "1";
        r.STATUS = "0";
        r.EMITE = "NF";
        r.QTDITENS = 99;
        r.CODICMS = 1;
        g.Grava("TBPNF", r);
    }
}

void GravaProdutos(Gravador& g, int16_t empresa) {
    const std::string hoje = Data(0);
    for (size_t i = 0; i < std::size(Produtos); ++i) {
        const Produto& p = Produtos[i];
        const Fornecedor& f = FornecedorDe(p.fornecedor);
        const double custo = Centavos(p.preco * 0.62);
        const Promocao promo = PromocaoDe(p.codigo);
        std::string inicio, fim;
        if (promo == Promocao::Vigente) inicio = Data(-3), fim = Data(7);
        if (promo == Promocao::Vencida) inicio = Data(-30), fim = Data(-10);
        if (promo == Promocao::Futura) inicio = Data(5), fim = Data(15);
        const double prcProm = promo == Promocao::Nenhuma ? 0 : Centavos(p.preco * 0.85);
        // Some products with no stock, some with all of it blocked, a few
        // blocked or inactive by their availability flag.
        const double estoque = empresa == 1 ? (i % 9 == 4 ? 0 : 20 + double(i * 37 % 180))
                                            : (i % 11 == 3 ? 0 : 50 + double(i * 53 % 300));
        const double bloqueado = i % 13 == 6 ? estoque : (i % 5 == 1 ? 2 : 0);
        const char* dispon = i % 17 == 10 ? "1" : (i == 40 ? "2" : "0");

        A_MTBMAT_t m;
        m.Empresa = empresa;
        m.CodItem = p.codigo;
        m.DscItem = p.descricao;
        m.GrpItem = p.grupo;
        m.Dispon = dispon;
        m.QtdItAnt = estoque;
        m.QtdItAtu = estoque;
        m.QtdItBloq = bloqueado;
        m.PrcItem = p.preco;
        m.PrcItem2 = Centavos(p.preco * 0.92);
        m.PrcItem3 = Centavos(p.preco * 0.88);
        m.PrcItem4 = Centavos(p.preco * 0.95);
        m.PrcProm = prcProm;
        m.DtIProm = inicio;
        m.DtFProm = fim;
        m.UltCData = Data(-20);
        m.UltCForn = f.codigo;
        m.RazFornec = f.razao;
        m.UltCQtd = 100;
        m.UltCValor = custo;
        m.CustMed = custo;
        m.CustPadr = custo;
        m.CustoCtb = Centavos(custo * 0.97);
        m.UndItem = p.unidade;
        m.Embal = p.unidade;
        m.QtdEmbal = 1;
        m.EstMin = 10;
        m.EstMax = 500;
        m.IPI = f.flagIpi == 2 ? 5 : 0;
        m.ClasABC = i % 3 == 0 ? "A" : "B";
        m.ClasFiscal = p.ncm;
        m.NBM = p.ncm;
        m.SitTrib = "0";
        m.CodICMSS = p.icms;
        m.PerComis = i % 10 == 7 ? 5 : 0;
        m.MultVenda = 1;
        m.CodEquiv = CodEquiv(p.codigo);
        m.StTr = 0;
        m.NatOper = 102;
        m.PisTrib = 1;
        m.CofinsTrib = 1;
        m.DtInc = hoje;
        m.DtAtu = hoje;
        m.CCusto = p.grupo;
        g.Grava("TBMAT", m);

        for (int16_t tipo = 1; tipo <= 3; ++tipo) {
            if (tipo == 2 && std::string_view(p.codigo) == SemPrecoAtacado) continue;
            A_MTBMATEQ_t e;
            e.Empresa = empresa;
            e.CodEquiv = CodEquiv(p.codigo);
            e.Tipo = tipo;
            e.CodItem = p.codigo;
            e.UndItem = p.unidade;
            e.QtdUnd = 1;
            e.Valor = tipo == 1 ? p.preco : tipo == 2 ? m.PrcItem2 : m.PrcItem3;
            e.Nivel = 1;
            if (tipo == 1) {
                e.DtIProm = inicio;
                e.DtFProm = fim;
                e.PrcProm = prcProm;
            }
            e.StTr = 0;
            e.DscItem = p.descricao;
            e.GrpItem = p.grupo;
            e.UltCForn = f.codigo;
            e.RazFornec = f.razao;
            e.CodRef = std::string("REF-") + p.codigo;
            e.Dispon = dispon;
            e.IPI = m.IPI;
            e.ClasFiscal = p.ncm;
            e.SitTrib = "0";
            e.CodICMSS = p.icms;
            e.PerComis = m.PerComis;
            e.PesoLiquido = 1;
            e.PesoBruto = 1.05;
            e.UndPeso = "KG";
            e.FatorConvGer = 1;
            e.UndGer = p.unidade;
            g.Grava("TBMATEQ", e);
        }

        A_MTBCUS_t c;
        c.Empresa = empresa;
        c.CodMat = p.codigo;
        c.CodFor = f.codigo;
        c.PrecoTab = Centavos(p.preco * 0.66);
        c.Desc1 = 5;
        c.Desc2 = i % 4 == 0 ? 2 : 0;
        c.ICMS = p.icms == 2 ? 12 : p.icms == 3 ? 0 : p.icms == 5 ? 7 : 18;
        c.ICMSS = p.icms == 4 ? 18 : 0;
        c.SitTrib = "0";
        c.IPI = m.IPI;
        c.MultVen = 1.35;
        c.DtUltAlt = Data(-20);
        c.StTr = 0;
        c.CustoCtb = m.CustoCtb;
        c.CustoGer = custo;
        c.PerCusFixo = 10;
        c.PerPIS = 0.65;
        c.PerCofins = 3;
        c.PerMargem = 30;
        c.PerICMSVenda = 18;
        c.DtInc = hoje;
        c.HrInc = "080000";
        c.CodSitTrib = "00";
        g.Grava("TBCUS", c);
    }
}

void GravaAgrupamentos(Gravador& g, int16_t empresa) {
    for (const Agrupamento& a : Agrupamentos()) {
        if (empresa == 2 && !a.naEmpresa2) continue;
        int32_t item = 0;
        for (const ItemAgrupamento& it : a.itens) {
            const Produto* p = ProdutoDe(it.produto);
            A_MTBMATAG_t r;
            r.Empresa = empresa;
            r.Codigo = a.codigo;
            r.Nome = a.nome;
            r.Item = ++item;
            r.CodItem = it.produto;
            r.CodEquiv = CodEquiv(it.produto);
            r.Qtd = it.qtd;
            r.QtdUnd = 1;
            r.STTR = a.sttr;
            r.Observacao = a.observacao;
            r.Tipo = a.tipo;
            if (p) {
                const Fornecedor& f = FornecedorDe(p->fornecedor);
                r.DscItem = p->descricao;
                r.UndItem = p->unidade;
                r.Valor = p->preco;
                r.CodForn = f.codigo;
                r.RazFornec = f.razao;
            } else {
                r.DscItem = "Leite em pó integral 400g";
                r.UndItem = "UN";
                r.Valor = 17.90;
            }
            g.Grava("TBMATAG", r);
        }
    }
}

void Documentos(Gravador& g, int16_t empresa) {
    const std::string hoje = Data(0);
    A_MTBPEV_t v;
    v.Empresa = empresa;
    v.NumPed = 1;
    v.DataPed = hoje;
    v.HoraPed = "093000";
    v.CodCli = empresa == 1 ? 5001 : 7001;
    v.NomeCli = empresa == 1 ? "Padaria Pão Quente Ltda" : "Mercearia Boa Vista Ltda";
    v.Endereco = empresa == 1 ? "Rua Barão de Jaguara, 300" : "Rua Conde de Bonfim, 85";
    v.Bairro = "Centro";
    v.Cidade = empresa == 1 ? "Campinas" : "Rio de Janeiro";
    v.UF = empresa == 1 ? "SP" : "RJ"; // company 2 sells across the state line
    v.Pais = "Brasil";
    v.CodVendedor = 1;
    v.CodRep = 10;
    v.NatOper = empresa == 1 ? 5102 : 6102;
    v.Status = "0";
    v.TpMov = 1;
    v.LocalICMS = "1";
    v.OBS = "Pedido aberto para demonstração";
    g.Grava("TBPEV", v);

    A_MTBPEC_t c;
    c.Empresa = empresa;
    c.NumPed = 1;
    c.DataPed = hoje;
    c.HoraPed = "100000";
    c.CodFor = 101;
    c.NomeFor = FornecedorDe(101).razao;
    c.CodComp = 1;
    c.NatOper = 1102;
    c.Status = "0";
    c.TpMov = 1;
    c.DtPrevEnt = Data(10);
    c.Obs = "Pedido de compra aberto para demonstração";
    g.Grava("TBPEC", c);

    A_MTBDOC_t d;
    d.Empresa = empresa;
    d.Seq = 1;
    d.TpMov = 1;
    d.NumNF = "000123";
    d.SerieNF = "1";
    d.TipoFC = "C";
    d.CodFC = v.CodCli;
    d.NomeFC = "Consumidor Final";
    d.Endereco = v.Endereco;
    d.Bairro = v.Bairro;
    d.Cidade = v.Cidade;
    d.UF = empresa == 1 ? "SP" : "MG";
    d.Vendedor = 1;
    d.CodRep = 10;
    d.NatOper = 5102;
    d.DtEmDoc = hoje;
    d.DtAtDoc = hoje;
    d.HrAtDoc = "110000";
    d.Status = "0";
    d.OBS = "Documento de loja aberto para demonstração";
    g.Grava("TBDOC", d);
}

void Configuracoes(Gravador& g) {
    const std::string ins = "INSERT INTO TBREGSRV (usuario, chave, valor, dtinc, hrinc, usuarioinc) VALUES (?, ?, ?, ?, ?, ?)";
    const std::string hoje = Data(0);
    for (auto [chave, valor] : {std::pair{"PRECO VENDA", "1"}, {"DESCONTO CASCATA", "SIM"}, {"BLOQUEIA ITENS", "SIM"}})
        g.Grava(ins, {"DEMO", chave, valor, hoje, "080000", "DEMO"});
}

// The supervisor may release items without stock (password "1234"); the
// demo operator may not, so generation asks for an authorisation.
void Seguranca(Gravador& g) {
    g.Grava("INSERT INTO TBSEGOPERADOR (OPERADOR, SENHAHASH) VALUES (?, ?)", {"SUPERVISOR", GeraHashSenha("1234")});
    g.Grava("INSERT INTO TBSEGDIREITO (OPERADOR, PROGRAMA, FUNCAO, PERMITE) VALUES (?, ?, ?, ?)",
            {"SUPERVISOR", "PJVELPEV", "DISPON", 1});
    g.Grava("INSERT INTO TBSEGDIREITO (OPERADOR, PROGRAMA, FUNCAO, PERMITE) VALUES (?, ?, ?, ?)",
            {"DEMO", "PJVELPEV", "DISPON", 0});
}

} // namespace

bool SemeiaDemo(std::string& msg) {
    if (!CriaEsquema(msg)) return false;
    if (!ExecutaTexto("SELECT COUNT(*) FROM TBPAR", msg)) return false;
    Comunica& k = ComunicaAtual();
    if (CDbl(k.Retorno[0]) > 0) {
        msg = "Os dados de demonstração não foram gravados: o banco já tem empresas em TBPAR";
        k.Status = status::ChaveExiste;
        k.Msg = msg;
        return false;
    }
    Gravador g(msg);
    Empresas(g);
    TiposDePreco(g);
    Configuracoes(g);
    Seguranca(g);
    const std::pair<int16_t, const char*> empresas[] = {{1, "SP"}, {2, "MG"}};
    for (auto [empresa, uf] : empresas) {
        Impostos(g, empresa, uf);
        Pessoas(g, empresa);
        TiposDeDocumento(g, empresa);
        GravaProdutos(g, empresa);
        GravaAgrupamentos(g, empresa);
        Documentos(g, empresa);
    }
    if (!g.ok()) return Desfaz();
    return Confirma(msg);
}

} // namespace ztolvan
// clang-format on
