// Random draws: seeded generators for streams that can be repeated, the standard library on top of
// them, and names and sequences without end.
#include <algorithm>
#include <iostream>
#include <ranges>
#include <string>
#include <vector>

#include <Tolvanite/Random/InfiniteSequence.h>
#include <Tolvanite/Random/MersenneTwister.h>
#include <Tolvanite/Random/NameGenerator.h>
#include <Tolvanite/Random/RandomInt.h>
#include <Tolvanite/Random/Xoroshiro.h>

using namespace tolvanite;

int main() {
  Xoroshiro generator(1, 2);
  std::cout << "dice:";
  for (int i = 0; i < 10; ++i) std::cout << ' ' << generator.random64(5) + 1;

  // A copy forks the stream: both go on alike.
  Xoroshiro fork = generator;
  std::cout << "\nfork: " << std::boolalpha
            << (fork.randomHalfOpen() == generator.randomHalfOpen());

  // A seed of one's own is a word for MersenneTwister; it gives the stream of std::mt19937_64.
  MersenneTwister twister(5489);
  std::cout << "\ntwister: " << twister.random64() << ' ' << twister.random64();

  std::string letters = "abcdefgh";
  std::shuffle(letters.begin(), letters.end(), generator);
  std::ranges::sort(letters);
  std::cout << "\nshuffled and sorted: " << letters << '\n';

  const auto names = NameGenerator::make(1, 2, "ab", "track-");
  const InfiniteSequence<std::string> colours({"red", "green", "blue"});
  auto colour = colours.makeIterator();
  for (const std::string& name : *names) std::cout << name << ' ' << colour.next().q2() << '\n';

  // Draws from the system need no generator.
  const Int height = RandomInt::random_gauss(2.0, 200);
  std::cout << (0 <= height && height <= 200 ? "a height of 0 to 200\n" : "impossible\n");
}
