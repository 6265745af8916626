// Symbolic paths: written once, in code or in settings, and resolved where the program runs.
#include <cstdlib>
#include <iostream>

#include <Tolvanite/Foundation/Pascription.h>
#include <Tolvanite/Platform/StandardPlaces.h>

using namespace tolvanite;

int main() {
  // A user's session sets these; here they are fixed, so that the places are the same everywhere.
  setenv("HOME", "/home/ada", 1);
  setenv("TMPDIR", "/tmp/ada", 1);
  setenv("XDG_CACHE_HOME", "/fast/ada/cache", 1);
  setenv("XDG_CONFIG_HOME", "/nowhere", 1);
  unsetenv("XDG_DATA_HOME");
  // A program names itself once, before it asks for places of its own.
  setMainBundle("org.example.player", "/usr/share/player");

  for (const char* text : {"$HOME$/Music/live", "$DOCUMENTS$/tracks.json", "$CACHES$/covers",
                           "$CACHESMBI$/covers", "$ASMBI$", "$MBRD$/icons/play.png",
                           "$TEMP$/export.wav", "$GROUP$org.example.studio$/shared"}) {
    std::cout << text << " is " << Pascription(text).vendUrl().path() << '\n';
  }

  // The same by parts: a component keeps its slash, and empty ones are left out.
  const Pascription byText("$DOCUMENTS$/mixes", "2024/summer");
  const Pascription byParts(Pascription::Base::documents, "mixes", "", "2024", "summer");
  std::cout << byText << (byText == byParts ? " equals " : " differs from ") << byParts << '\n';

  // A text from outside, such as a setting, may be no description at all.
  for (const char* setting : {"$DESKTOP$/mix.wav", "/etc/passwd", "$MUSIC$/mix.wav"}) {
    const Optional<Pascription> place = Pascription::tryParse(setting);
    std::cout << setting << ": " << (place ? place->vendUrl().absoluteString() : "refused") << '\n';
  }

  // Places are file locations: names to build on, and paths for the standard library's streams.
  const FileLocation mixes = byText.vendUrl();
  std::cout << mixes.appendingPathComponent("day & night").appendingPathExtension("wav") << '\n';
}
