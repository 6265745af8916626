// Texts for HTML, and HTML's character references back into characters.
//
//   tvEscapeHtml("a<b & 'c'")                       "a&lt;b &amp; &#39;c&#39;"
//   decodeHTML("&lt;&#65;&#x42;&gt; &eacute;")      "<AB> é"
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The named references of HTML 4 and "&apos;", 253 in all, each with its "&" and ";", and the
/// characters that they stand for. Case matters: "&Agrave;" is not "&agrave;".
TOLVANITE_EXPORT const Dictionary<std::string_view, char32_t>& characterEntities();

/// The text with "&amp;", "&quot;", "&#39;", "&lt;" and "&gt;" in place of the five characters that
/// mean something in HTML.
TOLVANITE_EXPORT std::string tvEscapeHtml(std::string_view text);

/// The text with each valid reference replaced by its character, once: "&amp;lt;" becomes "&lt;".
/// Valid are the named ones and decimal and hexadecimal numbers ("&#65;", "&#x41;") of Unicode
/// scalars. A reference goes from a "&" to the next ";"; what is no valid one stays as it is, and
/// so does all behind a "&" that no ";" follows.
TOLVANITE_EXPORT std::string decodeHTML(std::string_view text);

/// Each Unicode scalar of the text as "&#", its decimal number and ";", joined with the separator.
/// A malformed sequence shows as U+FFFD.
TOLVANITE_EXPORT std::string scalarsHtmlEntitiesRepresentation(std::string_view text,
                                                               std::string_view separator = {});

}  // namespace tolvanite
