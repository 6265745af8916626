// Texts with ANSI colour sequences around them, for a terminal.
//
//   printLine(cc("failed", ConsoleColor::red, ConsoleModifier::bold));
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Diagnostics/ConsoleColor.h>
#include <Tolvanite/Diagnostics/ConsoleModifier.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// `text` in that colour and no other attribute.
TOLVANITE_EXPORT std::string cc(std::string_view text, ConsoleColor color);

/// `text` in that colour; unchanged when there is none.
TOLVANITE_EXPORT std::string cc(std::string_view text, const Optional<ConsoleColor>& color);

/// `text` in that colour and with those modifiers, added to whatever the terminal shows already:
/// unlike the first form, this one resets nothing before, deliberately.
TOLVANITE_EXPORT std::string cc(std::string_view text, ConsoleColor color,
                                ConsoleModifier modifiers);

}  // namespace tolvanite
