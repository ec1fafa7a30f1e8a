#pragma once
// The tables the component reads and writes, for both databases, and the
// demo data. Both work through the calling thread's connection (AbreConexao
// first), whatever its kind, and report through their result and msg; the
// thread's Comunica keeps the last status.
#include <string>
#include <vector>

namespace ztolvan {

enum class Dialeto { Sqlite, Postgres };

// The schema's statements, one per text, in the order they run. Texts are
// kept so that trailing blanks never count in comparisons (fixed-width keys
// arrive padded): COLLATE RTRIM on SQLite, bpchar on PostgreSQL, which also
// gets the ISNULL(a, b) functions the system's statements use.
const std::vector<std::string>& TextosEsquema(Dialeto d);

// Creates whatever is missing, in one unit of change; running it again
// changes nothing. false with msg when a statement fails (nothing is kept).
bool CriaEsquema(std::string& msg);

// Creates the schema when needed and writes the demo data in one unit of
// change: two companies (1 in SP, 2 in MG), about sixty products with stock,
// three price types with their equivalences, twelve groupings of company 1
// and five of company 2, ICMS codes and state rates, sellers,
// representatives, suppliers with costs, document types, one open sales
// order, purchase order and store document per company, and the settings
// of the operator "DEMO". A database that has them already is refused:
// false, Comunica.Status "22" and msg saying so.
bool SemeiaDemo(std::string& msg);

} // namespace ztolvan
