#include "screens/grade.h"

#include <algorithm>

#include "common/erro.h"

namespace ztolvan {
namespace {
ErroExecucao ForaDaGrade() { return {381, "Índice de linha ou coluna inválido"}; }
} // namespace

void Grade::Confere(int r, int c) const {
    if (r < 0 || r >= linhas_ || c < 0 || c >= colunas_) throw ForaDaGrade();
}

void Grade::DefineRows(int n) {
    if (n < 0) throw ForaDaGrade();
    const size_t tamanho = static_cast<size_t>(n) * colunas_;
    for (size_t i = tamanho; i < celulas_.size(); ++i) {
        celulas_[i].clear();
        sobras_.push_back(std::move(celulas_[i]));
    }
    celulas_.resize(tamanho);
    linhas_ = n;
    linha_ = std::clamp(linha_, 0, std::max(0, n - 1));
    linhaSel_ = std::clamp(linhaSel_, 0, std::max(0, n - 1));
    MudouEstrutura();
}

void Grade::DefineCols(int n) {
    if (n < 0) throw ForaDaGrade();
    if (n != colunas_) {
        std::vector<std::string> novas(static_cast<size_t>(linhas_) * n);
        const int comuns = std::min(n, colunas_);
        for (int r = 0; r < linhas_; ++r)
            for (int c = 0; c < comuns; ++c)
                novas[static_cast<size_t>(r) * n + c] =
                    std::move(celulas_[static_cast<size_t>(r) * colunas_ + c]);
        celulas_ = std::move(novas);
    }
    colunas_ = n;
    larguras_.resize(n, 0);
    alinhamentos_.resize(n, AlinhamentoGrade::Geral);
    coluna_ = std::clamp(coluna_, 0, std::max(0, n - 1));
    MudouEstrutura();
}

void Grade::DefineRow(int r) {
    if (r < 0 || r >= linhas_) throw ForaDaGrade();
    linha_ = linhaSel_ = r;
}

void Grade::DefineCol(int c) {
    if (c < 0 || c >= colunas_) throw ForaDaGrade();
    coluna_ = c;
}

void Grade::DefineRowSel(int r) {
    if (r < 0 || r >= linhas_) throw ForaDaGrade();
    linhaSel_ = r;
}

const std::string& Grade::TextMatrix(int r, int c) const {
    Confere(r, c);
    return celulas_[static_cast<size_t>(r) * colunas_ + c];
}

void Grade::DefineTextMatrix(int r, int c, std::string texto) {
    Confere(r, c);
    celulas_[static_cast<size_t>(r) * colunas_ + c] = std::move(texto);
    ++versao_;
}

int Grade::LarguraM(int c) const {
    if (c < 0 || c >= colunas_) throw ForaDaGrade();
    return larguras_[c];
}

void Grade::DefineLarguraM(int c, int ms) {
    if (c < 0 || c >= colunas_) throw ForaDaGrade();
    larguras_[c] = std::max(0, ms);
    ++versao_;
}

AlinhamentoGrade Grade::ColAlignment(int c) const {
    if (c < 0 || c >= colunas_) throw ForaDaGrade();
    return alinhamentos_[c];
}

void Grade::DefineColAlignment(int c, AlinhamentoGrade a) {
    if (c < 0 || c >= colunas_) throw ForaDaGrade();
    alinhamentos_[c] = a;
    ++versao_;
}

void Grade::AddItem(std::string_view linha) {
    const size_t base = celulas_.size();
    celulas_.resize(base + colunas_);
    size_t ini = 0;
    for (int c = 0; c < colunas_; ++c) {
        size_t tab = linha.find('\t', ini);
        celulas_[base + c].assign(linha.substr(ini, tab == std::string_view::npos ? linha.npos : tab - ini));
        if (tab == std::string_view::npos) break;
        ini = tab + 1;
    }
    ++linhas_;
    MudouEstrutura();
}

std::span<std::string> Grade::NovaLinha() {
    const size_t base = celulas_.size();
    for (int c = 0; c < colunas_; ++c) {
        if (sobras_.empty()) {
            celulas_.emplace_back();
        } else {
            celulas_.push_back(std::move(sobras_.back()));
            sobras_.pop_back();
        }
    }
    ++linhas_;
    MudouEstrutura();
    return std::span<std::string>(celulas_).subspan(base);
}

void Grade::Clear() {
    for (auto& c : celulas_)
        c.clear();
    ++versao_;
}

void Grade::Seleciona(int r, int c) {
    if (r < 0 || r >= linhas_ || c < 0 || c >= colunas_) return;
    const bool mudou = r != linha_;
    linha_ = linhaSel_ = r;
    coluna_ = c;
    if (mudou) Dispara(SelChange);
}

} // namespace ztolvan
