#ifdef TOLVANITE_PEER_QT

#include <QDateTime>
#include <QString>
#include <string>

#include "../DatesDriver.h"

// QDateTime with its own fixed form.
namespace bench {
namespace {

class QtDates {
 public:
  std::string write(std::int64_t milliseconds) {
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC)
        .toString(Qt::ISODateWithMs)
        .toStdString();
  }
  std::int64_t read(const std::string& text) {
    const auto time = QDateTime::fromString(QString::fromStdString(text), Qt::ISODateWithMs);
    return time.isValid() ? time.toMSecsSinceEpoch() : -1;
  }
};

const bool registered = registerDates<QtDates>("qt");

}  // namespace
}  // namespace bench

#endif
