// tolvanite-gallery FILE: writes the colour palette to an HTML file. Ends with 1 if it could not be
// written.
#include <fstream>
#include <iostream>

#include "palette.h"

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::cerr << "Usage: tolvanite-gallery FILE    writes an HTML page to FILE\n";
    return 2;
  }
  std::ofstream file(arguments[1]);
  gallery::writePalette(file);
  file.close();
  if (!file) {
    std::cerr << "tolvanite-gallery: cannot write " << arguments[1] << '\n';
    return 1;
  }
}
