#include "ui/qt/modelo_grade.h"

#include <algorithm>
#include <QColor>
#include <cctype>
#include <string_view>

#include "ui/qt/comum_qt.h"

namespace ztolvan {
namespace {

// The old grid's "general" alignment: numbers to the right, texts to the
// left. Blanks around a number are padding; a blank between its characters
// makes it a text (a code such as "12 34").
bool PareceNumero(std::string_view t) {
    const size_t ini = t.find_first_not_of(' ');
    if (ini == std::string_view::npos) return false;
    t = t.substr(ini, t.find_last_not_of(' ') - ini + 1);
    bool digito = false;
    for (unsigned char c : t) {
        if (std::isdigit(c))
            digito = true;
        else if (c != ',' && c != '.' && c != '-' && c != '+')
            return false;
    }
    return digito;
}

// What a cell shows: its text without the blanks that pad it on the right
// (fixed-width codes), which would only push it out of its cell.
QString Mostrado(const std::string& t) {
    const size_t fim = t.find_last_not_of(' ');
    return fim == std::string::npos ? QString() : QString::fromUtf8(t.data(), static_cast<qsizetype>(fim + 1));
}

Qt::Alignment AlinhamentoQt(AlinhamentoGrade a, const std::string& texto) {
    if (a == AlinhamentoGrade::Geral)
        return Qt::AlignVCenter | (PareceNumero(texto) ? Qt::AlignRight : Qt::AlignLeft);
    const int n = static_cast<int>(a);
    const Qt::Alignment h[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const Qt::Alignment v[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return h[n / 3] | v[n % 3];
}

} // namespace

ModeloGrade::ModeloGrade(const Grade& g, QObject* pai)
    : QAbstractTableModel(pai), g_(g), linhas_(std::max(0, g.Rows() - 1)), colunas_(g.Cols()),
      versao_(g.Versao()), estrutura_(g.VersaoEstrutura()) {}

int ModeloGrade::rowCount(const QModelIndex& pai) const { return pai.isValid() ? 0 : linhas_; }
int ModeloGrade::columnCount(const QModelIndex& pai) const { return pai.isValid() ? 0 : colunas_; }

const std::string* ModeloGrade::Celula(int linha, int coluna) const {
    if (linha < 0 || linha >= g_.Rows() || coluna < 0 || coluna >= g_.Cols()) return nullptr;
    return &g_.TextMatrix(linha, coluna);
}

QVariant ModeloGrade::data(const QModelIndex& i, int papel) const {
    if (!i.isValid()) return {};
    const std::string* t = Celula(i.row() + 1, i.column());
    if (!t) return {};
    if (papel == Qt::DisplayRole) {
        // A marked row carries a tick on its first shown column.
        if (Marcada(i.row()) && i.column() == PrimeiraVisivel()) return QStringLiteral("\u2714 ") + Mostrado(*t);
        return Mostrado(*t);
    }
    if (papel == Qt::TextAlignmentRole)
        return QVariant::fromValue(AlinhamentoQt(g_.ColAlignment(i.column()), *t));
    if (papel == Qt::BackgroundRole && Marcada(i.row())) return QColor(255, 241, 189);
    return {};
}

QVariant ModeloGrade::headerData(int secao, Qt::Orientation o, int papel) const {
    if (o == Qt::Vertical) return papel == Qt::DisplayRole ? QVariant(secao + 1) : QVariant();
    if (papel != Qt::DisplayRole || secao < 0 || secao >= colunas_) return {};
    const std::string* t = Celula(0, secao);
    return t ? Q(*t) : QVariant();
}

bool ModeloGrade::Marcada(int linha) const {
    if (g_.ColunaMarca < 0) return false;
    const std::string* m = Celula(linha + 1, g_.ColunaMarca);
    return m && m->find_first_not_of(' ') != std::string::npos;
}

int ModeloGrade::PrimeiraVisivel() const {
    for (int c = 0; c < g_.Cols(); ++c)
        if (g_.LarguraM(c) > 0) return c;
    return 0;
}

Qt::ItemFlags ModeloGrade::flags(const QModelIndex& i) const {
    return i.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

ModeloGrade::Mudanca ModeloGrade::Atualiza() {
    if (g_.VersaoEstrutura() != estrutura_) {
        beginResetModel();
        linhas_ = std::max(0, g_.Rows() - 1);
        colunas_ = g_.Cols();
        estrutura_ = g_.VersaoEstrutura();
        versao_ = g_.Versao();
        endResetModel();
        return Mudanca::Estrutura;
    }
    if (g_.Versao() == versao_) return Mudanca::Nenhuma;
    versao_ = g_.Versao();
    if (colunas_ > 0) {
        emit headerDataChanged(Qt::Horizontal, 0, colunas_ - 1);
        if (linhas_ > 0) emit dataChanged(index(0, 0), index(linhas_ - 1, colunas_ - 1));
    }
    return Mudanca::Textos;
}

} // namespace ztolvan
