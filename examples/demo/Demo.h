// The demo itself: a model of files, a live view of it, a table that follows the view, and one
// change of the model after the other. After each, the table has to equal the view. At the end the
// model is stored as JSON, and has to come back as it was.
#pragma once

#include <vector>

#include "FileRecord.h"

namespace demo {

/// Runs all phases and prints what they do. Whether every check was passed.
bool runDemo(std::vector<FileRecord> files);

}  // namespace demo
