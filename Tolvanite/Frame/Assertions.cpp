#include <Tolvanite/Frame/Assertions.h>

#include <exception>
#include <string>

#include <cxxabi.h>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Platform/Debugger.h>

namespace tolvanite {

void TolvaniteCoding::importantLog(std::string_view text) {
  printLine("📛 IMPORTANT!! 📛 = " + std::string(text));
}

void TolvaniteCoding::unexpectedCodeReached(std::string_view text, std::source_location location) {
  const std::string message = "Unexpected Code Reached: " + std::string(text);
  importantLog(message);
  fatalFailure(message, location);
}

void TolvaniteCoding::notYetImplemented() {
  printLine("📛📛📛📛📛 NYI NOT YET IMPLEMENTED 📛📛📛📛📛");
}

void whenThrowing(std::string_view fatalErrorMessage, const Block<void()>& block,
                  std::source_location location) {
  std::string description;
  try {
    block();
    return;
  } catch (const Error& error) {
    description = error.localizedDescription();
  } catch (const std::exception& error) {
    description = error.what();
  } catch (...) {
    const std::type_info* type = abi::__cxa_current_exception_type();
    description = "Unknown error";
    if (type != nullptr) description += " of type " + detail::readableTypeName(*type);
  }
  fatalFailure(std::string(fatalErrorMessage) + ": " + description, location);
}

bool tvAmIBeingDebugged() { return isDebuggerAttached(); }

}  // namespace tolvanite
