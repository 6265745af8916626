#include <Tolvanite/Frame/Error.h>

namespace tolvanite {

Error::~Error() = default;

}  // namespace tolvanite
