#if defined(TOLVANITE_PEER_QT)

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringTokenizer>
#include <QTextBoundaryFinder>
#include <string_view>
#include <vector>

#include "../StringsDriver.h"

namespace bench {
namespace {

struct Qt {
  using Text = QString;
  static Text prepared(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  }

  // It takes a flag behind a family of emoji for two characters.
  static constexpr bool miscounts = true;
  static std::size_t graphemes(const Text& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    std::size_t count = 0;
    while (finder.toNextBoundary() != -1) ++count;
    return count;
  }
  static Text escaped(const Text& text) { return text.toHtmlEscaped(); }
  static std::vector<QStringView> splitViews(const Text& text) {
    std::vector<QStringView> result;
    for (const QStringView field : QStringTokenizer(text, u',')) result.push_back(field);
    return result;
  }
  static QStringList splitOwned(const Text& text) { return text.split(u','); }
  static Text padded(const Text& text) { return text.leftJustified(40); }
  static Text replaced(const Text& text, const Text& of, const Text& with) {
    Text result = text;
    return result.replace(of, with);
  }
};

struct QtBytes {
  using Text = QByteArray;
  static Text prepared(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
  }
  static Text replaced(const Text& text, const Text& of, const Text& with) {
    Text result = text;
    return result.replace(of, with);
  }
};

const bool registered =
    registerStrings<Qt>("qt_QString") && registerStrings<QtBytes>("qt_QByteArray");

}  // namespace
}  // namespace bench

#endif
