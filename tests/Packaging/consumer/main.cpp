#include <iostream>
#include <map>
#include <string>
#include <vector>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>

int main() {
  const std::map<std::string, std::vector<int>> pages{{"first", {1, 2}}, {"second", {}}};
  std::cout << tolvanite::textForm(pages) << '\n'
            << tolvanite::checkedAdd<tolvanite::Int>(40, 2) << '\n';
}
