// tolvanite-gallery [FOLDER]: draws what the library can walk and turn, and writes the colour
// palette as palette.html into FOLDER, if one is given. Ends with 1 if that could not be written.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "palette.h"
#include "walks.h"

int main(int argumentCount, char** arguments) {
  if (argumentCount > 2) {
    std::cerr << "Usage: tolvanite-gallery [FOLDER]    writes palette.html into FOLDER\n";
    return 2;
  }
  gallery::drawWalks(std::cout);
  if (argumentCount == 1) return 0;
  const auto path = std::filesystem::path(arguments[1]) / "palette.html";
  std::ofstream file(path);
  gallery::writePalette(file);
  file.close();
  if (!file) {
    std::cerr << "tolvanite-gallery: cannot write " << path.string() << '\n';
    return 1;
  }
}
