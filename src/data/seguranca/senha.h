#pragma once
#include <string>

namespace ztolvan {

// A salted one-way hash of a password in the crypt(5) form ("$y$..." with
// yescrypt, "$6$..." with sha512-crypt where yescrypt is not offered).
// "" when the password is empty or no hash could be made.
std::string GeraHashSenha(const std::string& Senha);

// Whether Senha is the password Hash was made from. An empty or malformed
// hash matches nothing.
bool ConfereSenha(const std::string& Senha, const std::string& Hash);

} // namespace ztolvan
