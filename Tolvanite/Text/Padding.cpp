#include <Tolvanite/Text/Padding.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

namespace {

// How many characters the text lacks; 0 when it is long enough.
Int missingCount(std::string_view text, Int length) {
  const Int count = characterCount(text);
  return length > count ? length - count : 0;
}

// Appends the first `count` characters of an endless row of pads.
void appendPad(std::string& text, std::string_view pad, Int count) {
  if (pad.size() == 1) {
    text.append(static_cast<std::size_t>(count), pad.front());
    return;
  }
  const Int padCount = characterCount(pad);
  for (Int i = count / padCount; i > 0; --i) text += pad;
  text += characterPrefix(pad, count % padCount);
}

std::string between(std::string_view text, std::string_view pad, Int before, Int behind) {
  if (pad.empty() || before + behind == 0) return std::string(text);
  std::string result;
  // One pad has as many bytes as characters, or more.
  result.reserve(text.size() + static_cast<std::size_t>(before + behind));
  if (before > 0) appendPad(result, pad, before);
  result += text;
  if (behind > 0) appendPad(result, pad, behind);
  return result;
}

}  // namespace

std::string tvStringPadToLength(std::string_view text, Int length, std::string_view with,
                                bool rightPadding) {
  const Int missing = missingCount(text, length);
  return rightPadding ? between(text, with, 0, missing) : between(text, with, missing, 0);
}

std::string paddedLeft(std::string_view text, Int length, std::string_view s) {
  return tvStringPadToLength(text, length, s, false);
}

std::string paddedRight(std::string_view text, Int length, std::string_view s) {
  return tvStringPadToLength(text, length, s, true);
}

std::string paddedBoth(std::string_view text, Int length, std::string_view s) {
  const Int missing = missingCount(text, length);
  return between(text, s, missing / 2, missing - missing / 2);
}

std::string paddedLeft(std::string_view text, std::string_view padding) {
  return overwritten(padding, text, false);
}

std::string tvStringPaddedLeftWith(std::string_view text, std::string_view s) {
  return paddedLeft(text, s);
}

std::string overwritten(std::string_view s, std::string_view with, bool leftAligned) {
  const Int width = characterCount(s), count = characterCount(with);
  std::string result;
  if (leftAligned) {
    result = characterPrefix(with, width);
    if (count < width) result += droppingFirstCharacters(s, count);
  } else {
    if (count < width) result = droppingLastCharacters(s, count);
    result += characterSuffix(with, width);
  }
  return result;
}

std::string overwritten(Int width, std::string_view with, bool leftAligned) {
  if (width < 0) fatalFailure("Negative width: " + std::to_string(width));
  return overwritten(std::string(static_cast<std::size_t>(width), ' '), with, leftAligned);
}

}  // namespace tolvanite
