// The rows of the view as a plain text file, a line for each.
#pragma once

#include <Tolvanite/Frame/FileLocation.h>

#include "TableController.h"

namespace demo {

/// Writes the listing into the user's folder of caches and gives its place. Throws a
/// tolvanite::Error if that fails.
tolvanite::FileLocation writeListing(const FileView& view);

/// Whether the file holds a line for each row of the view and nothing else.
bool listingEquals(const tolvanite::FileLocation& location, const FileView& view);

}  // namespace demo
