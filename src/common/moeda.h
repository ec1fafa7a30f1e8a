#pragma once
#include <cstdint>

namespace ztolvan {

// Fixed-point money counting ten-thousandths, as the old run-time's currency
// type: conversions from double round halves to even; overflow is ErroExecucao 6.
class Moeda {
  public:
    Moeda() = default;
    static Moeda DeDuplo(double v);
    static Moeda DeDezMilesimos(int64_t d) {
        Moeda m;
        m.d_ = d;
        return m;
    }
    int64_t DezMilesimos() const { return d_; }
    double Duplo() const { return static_cast<double>(d_) / 10000.0; }

    Moeda operator+(Moeda o) const;
    Moeda operator-(Moeda o) const;
    // Product rounded back to four decimals, halves to even.
    Moeda operator*(Moeda o) const;
    Moeda operator/(Moeda o) const;
    bool operator==(const Moeda&) const = default;
    auto operator<=>(const Moeda&) const = default;

  private:
    int64_t d_ = 0;
};

} // namespace ztolvan
