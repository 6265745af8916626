// Texts for the literals of source code.
//
//   stringPreparedForStringLiteral("say \"hi\"\n")     `say \"hi\"\n`, two characters each
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The text with each backslash doubled.
TOLVANITE_EXPORT std::string stringLiteralEncoded(std::string_view text);

/// The text as it stands between the double quotes of a literal: a double quote, a backslash, a
/// line feed, a carriage return and a tab become backslash sequences.
TOLVANITE_EXPORT std::string stringPreparedForStringLiteral(std::string_view text);

}  // namespace tolvanite
