#include <Tolvanite/Text/WebLinks.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include <unicode/uchar.h>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Frame/detail/CodePoints.h>
#include <Tolvanite/Frame/detail/PercentEncoding.h>
#include <Tolvanite/Text/CharacterSet.h>
#include <Tolvanite/Text/detail/TextSearch.h>

namespace tolvanite {

namespace {

// Last labels of domains that stand for themselves in a sentence, each between blanks: the common
// generic ones, and those of countries.
constexpr std::string_view webEndings =
    " com org net edu gov mil info biz app blog cloud dev online page shop site store tech"
    " website wiki xyz"
    " ac ad ae af ag ai al am ao aq ar as at au aw ax az ba bb bd be bf bg bh bi bj bm bn bo br bs"
    " bt bv bw by bz ca cd cf cg ch ci ck cl cm cn co cr cu cv cw cx cy cz de dj dk dm do dz ec ee"
    " eg er es et eu fi fj fk fm fo fr ga gb gd ge gf gg gh gi gl gm gn gp gq gr gs gt gu gw gy hk"
    " hm hn hr ht hu ie il im in io iq ir is it je jm jo jp ke kg kh ki km kn kp kr kw ky kz la"
    " lb lc li lk lr ls lt lu lv ly ma mc mg mh mm mn mo mp mq mr mu mv mw mx my mz na nc ne nf ng"
    " ni nl no np nr nu nz om pa pe pf pg ph pk pm pn pr pt pw py qa re ro ru rw sa sb sc sd se sg"
    " si sj sk sl sm sn so sr st sv sx sy sz tc td tf tg th tj tk tl tm tn to tr tt tv tw tz ua ug"
    " uk us uy uz va vc vg vi vn vu wf ws ye yt za zm zw бг бел ею қаз мкд мон рф срб укр ελ ευ ";

// The same for those that are also endings of files, or members in source code.
constexpr std::string_view doubtfulEndings =
    " md ml mk ms mt py pl ps rs sh cc gl id int name as in is so st to am do my va ";

// Those that are also words, and so begin a sentence when a blank is missing: "We left.No".
constexpr std::string_view wordEndings = " at be it me no us ";

bool isListed(std::string_view list, std::string_view word) {
  return detail::findText(list, " " + std::string(word) + " ") != std::string_view::npos;
}

// Letters beyond ASCII that names of hosts are made of, of alphabets that set words apart by
// blanks: Latin, Greek, Cyrillic, Armenian, Hebrew and Arabic.
bool isHostLetter(std::int32_t codePoint) {
  return (codePoint >= 0xC0 && codePoint <= 0x24F && codePoint != 0xD7 && codePoint != 0xF7) ||
         (codePoint >= 0x370 && codePoint <= 0x6FF) || (codePoint >= 0x1E00 && codePoint < 0x2000);
}

// The end of the characters at `position` that a host can have, with "." among them. `behindScheme`
// letters of any alphabet are, but those that no blank sets apart only in labels that begin so.
std::size_t hostRunEnd(std::string_view text, std::size_t position, bool behindScheme = false) {
  bool startsLabel = true, isAnyLetter = false;
  while (position < text.size()) {
    const char byte = text[position];
    std::size_t next = position;
    const std::int32_t codePoint = detail::readCodePointInline(text, next);
    if (codePoint < 0x80) {
      if (codePoint == detail::malformed) break;
      if (!detail::isAsciiLetterOrDigit(byte) && byte != '-' && byte != '.' && byte != '_') break;
    } else if (!isHostLetter(codePoint)) {
      if (startsLabel) isAnyLetter = behindScheme;
      if (!isAnyLetter || !u_hasBinaryProperty(codePoint, UCHAR_XID_CONTINUE)) break;
    }
    startsLabel = byte == '.';
    if (startsLabel) isAnyLetter = false;
    position = next;
  }
  return position;
}

// What can't stand in a link, or not behind the host.
const CharacterSet& endOfLink() {
  static const CharacterSet set =
      CharacterSet("<>\"`{}|\\^«»‹›“”‘’„‚—、。〈〉《》「」『』【】！（），：；？") |
      CharacterSet{{0, U' '},        {0x7F, 0x9F},     {0x200B, 0x200B}, {0x200E, 0x200F},
                   {0x202A, 0x202E}, {0x2060, 0x2060}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF}} |
      CharacterSet::whitespacesAndNewlines();
  return set;
}

bool startsLink(std::string_view text) {
  return text.starts_with("http://") || text.starts_with("https://");
}

// The end of port, path, query and fragment from `start` on: where white space or the like stands,
// the next link of a list begins, or a bracket is closed that was not opened, without the
// punctuation before it.
std::size_t linkEnd(std::string_view text, const std::size_t start) {
  constexpr std::string_view opening = "([", closing = ")]";
  std::string open;
  std::size_t end = start;  // Behind the last byte that is no punctuation.
  for (std::size_t position = start; position < text.size();) {
    const char byte = text[position];
    const std::int32_t codePoint = detail::readCodePointInline(text, position);
    if (codePoint == detail::malformed) break;
    if (endOfLink().contains(static_cast<char32_t>(codePoint))) break;
    if (opening.find(byte) != std::string_view::npos) {
      open += byte;
      continue;
    }
    const std::size_t kind = closing.find(byte);
    if (kind != std::string_view::npos) {
      if (open.empty() || open.back() != opening[kind]) break;
      open.pop_back();
    }
    constexpr std::int32_t ellipsis = 0x2026;
    if (codePoint == ellipsis) continue;
    if ((byte == ',' || byte == ';') && startsLink(text.substr(position))) break;
    if (std::string_view(".,;:!?'*_~").find(byte) == std::string_view::npos) end = position;
  }
  return end;
}

// Whether the labels of a host are of letters and digits, with "-" and "_" between them.
bool isHost(std::string_view host) {
  for (bool isLast = false; !isLast;) {
    const std::size_t dot = host.find('.');
    isLast = dot == std::string_view::npos;
    const std::string_view label = host.substr(0, dot);
    if (label.empty() || label.front() == '-' || label.back() == '-') return false;
    if (!isLast) host.remove_prefix(dot + 1);
  }
  return true;
}

class LinkFinder {
 public:
  explicit LinkFinder(std::string_view text) : text_(text) {}

  std::vector<WebLink> links() {
    while (position_ < text_.size()) {
      const std::size_t end = hostRunEnd(text_, position_);
      if (end == position_) {
        detail::readCodePointInline(text_, position_);
        continue;
      }
      if (const std::size_t after = linkBehindScheme(end); after != 0) {
        add(position_, after, "");
      } else if (const std::size_t bareEnd = bareLink(end); bareEnd != 0) {
        add(position_, bareEnd, "http://");
      } else {
        position_ = end;
      }
    }
    return std::move(links_);
  }

 private:
  void add(std::size_t start, std::size_t end, std::string_view scheme) {
    links_.push_back({IndexRange(static_cast<Int>(start), static_cast<Int>(end)),
                      std::string(scheme).append(text_.substr(start, end - start))});
    position_ = end;
  }

  char byteAt(std::size_t place) const { return place < text_.size() ? text_[place] : '\0'; }

  // The word up to `end` is a scheme, maybe with punctuation before it, and a host follows: the end
  // of the link, and `position_` at the scheme. Else 0.
  std::size_t linkBehindScheme(std::size_t end) {
    if (!text_.substr(end).starts_with("://")) return 0;
    const std::string_view word = text_.substr(position_, end - position_);
    std::size_t schemeStart = word.find_last_of(".-_");
    schemeStart = schemeStart == std::string_view::npos ? 0 : schemeStart + 1;
    const std::string scheme = lowercased(word.substr(schemeStart));
    if (scheme != "http" && scheme != "https") return 0;
    std::size_t hostStart = end + 3;
    std::size_t hostEnd = hostRunEnd(text_, hostStart, true);
    if (byteAt(hostEnd) == '@' || (byteAt(hostEnd) == ':' && userEnd(hostEnd) != 0)) {
      hostStart = (byteAt(hostEnd) == '@' ? hostEnd : userEnd(hostEnd)) + 1;
      hostEnd = hostRunEnd(text_, hostStart, true);
    }
    if (byteAt(hostStart) == '[') {
      hostEnd = text_.find_first_not_of("0123456789abcdefABCDEF:.", hostStart + 1);
      if (hostEnd == std::string_view::npos || text_[hostEnd] != ']') return 0;
      ++hostEnd;
    } else {
      hostEnd = trimmedHostEnd(hostStart, hostEnd);
      if (hostEnd == hostStart || !isHost(text_.substr(hostStart, hostEnd - hostStart))) return 0;
    }
    position_ += schemeStart;
    return restEnd(hostEnd);
  }

  // The place of the "@" behind a password that begins at `colon`, or 0. Ports are no passwords.
  std::size_t userEnd(std::size_t colon) const {
    const std::size_t end = text_.find_first_of("@/?# \t\r\n<>\"()", colon);
    return end != std::string_view::npos && text_[end] == '@' ? end : 0;
  }

  std::size_t trimmedHostEnd(std::size_t start, std::size_t end) const {
    while (end > start && std::string_view(".-_").find(text_[end - 1]) != std::string_view::npos) {
      --end;
    }
    return end;
  }

  // The end of the link whose host ends at `hostEnd`.
  std::size_t restEnd(std::size_t hostEnd) const {
    std::size_t end = hostEnd;
    if (byteAt(end) == ':') {
      const std::size_t portEnd =
          std::min(text_.find_first_not_of("0123456789", end + 1), text_.size());
      if (portEnd > end + 1) end = portEnd;
    }
    return std::string_view("/?#").find(byteAt(end)) != std::string_view::npos && end < text_.size()
               ? std::max(end, linkEnd(text_, end))
               : end;
  }

  // The word up to `end` is a domain: the end of the link, else 0.
  std::size_t bareLink(std::size_t end) {
    const char before = position_ == 0 ? '\0' : text_[position_ - 1];
    if (before == '@' || before == '/' || before == '\\' || byteAt(end) == '@') return 0;
    if (text_.substr(end).starts_with("://")) return 0;
    std::size_t start = std::min(text_.find_first_not_of(".-_", position_), end);
    // A "." before it makes it the rest of a name.
    if (start > position_ && text_[start - 1] == '.') return 0;
    const std::size_t hostEnd = trimmedHostEnd(start, end);
    const std::string host = lowercased(text_.substr(start, hostEnd - start));
    const std::size_t dot = host.rfind('.');
    if (dot == std::string::npos || !isHost(host)) return 0;
    const std::string ending = host.substr(dot + 1);
    const bool isLowercase = text_.substr(start, hostEnd - start).ends_with(ending);
    const bool hasPath = hostEnd == end && byteAt(end) == '/';
    const bool isNamed = host.starts_with("www.") && host.find('.') != dot;
    if (!isNamed) {
      const bool isDoubtful = isListed(doubtfulEndings, ending);
      const bool isWord = isListed(wordEndings, ending);
      if (!isDoubtful && !isWord && !isListed(webEndings, ending)) return 0;
      const bool isSure = isWord ? isLowercase && byteAt(end) != '(' : !isDoubtful;
      if (!isSure && !hasPath) return 0;
    }
    position_ = start;
    return restEnd(hostEnd);
  }

  std::string_view text_;
  std::size_t position_ = 0;
  std::vector<WebLink> links_;
};

}  // namespace

std::vector<WebLink> webLinks(std::string_view text) { return LinkFinder(text).links(); }

}  // namespace tolvanite
