#include <Tolvanite/Diagnostics/PositionLog.h>

#include <filesystem>

#include <fmt/format.h>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Platform/SystemLog.h>
#include <Tolvanite/Platform/Threads.h>

namespace tolvanite {

namespace {

// Slashes at the end are no part of the last component.
std::filesystem::path lastPathComponent(std::string_view file) {
  while (file.size() > 1 && file.ends_with('/')) file.remove_suffix(1);
  return std::filesystem::path(file).filename();
}

std::string shortFileName(std::string_view file) { return lastPathComponent(file).stem().string(); }

std::string_view threadMark() { return isMainThread() ? "MT" : ""; }

std::string flowLine(std::string_view text, const CallerPosition& position) {
  return fmt::format("🍇🍇🍇{}.{} Line:{} {}{}{}", shortFileName(position.file), position.function,
                     position.line, isMainThread() ? "[MT]" : "", text.empty() ? "" : ": ", text);
}

}  // namespace

void qfilelog(std::string_view text, CallerPosition position) {
  printLine(fmt::format("🔀{} {}@{}: {}", threadMark(), shortFileName(position.file), position.line,
                        text));
}

void qdebuglog(bool flag, std::string_view text, CallerPosition position) {
  if (flag) qfilelog(text, position);
}

void qlinelog(std::string_view text, CallerPosition position) {
  printLine(fmt::format("🔀{} \"{}\"@{}: {}{}", threadMark(),
                        lastPathComponent(position.file).string(), position.line, position.function,
                        text));
}

void dmprint(bool flag, std::string_view text) {
  if (flag) printLine(fmt::format("🔀{} {}", threadMark(), text));
}

void qflow(std::string_view text, CallerPosition position) { printLine(flowLine(text, position)); }

void qnsflow(std::string_view text, CallerPosition position) {
  writeSystemLog(flowLine(text, position));
}

}  // namespace tolvanite
