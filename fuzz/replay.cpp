// Runs a target without a fuzzer: on the files of a folder and then on random bytes.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr unsigned randomInputs = 12'500; // more than a million changes of a text and of its lines
constexpr std::size_t longest = 2000;

// The last name on the way tells which input it was that failed.
void run(const std::string& name, const std::string& bytes) {
    std::cout << name << std::endl;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

// Every other byte is one that texts are told apart by.
std::string randomBytes(unsigned seed) {
    constexpr char telling[] = {'a', 'a', 'a', ' ', ' ', '\t', '\r', '\n'};
    std::mt19937 random(seed);
    std::string bytes(random() % longest, '\0');
    for (char& byte : bytes) {
        const auto number = random();
        byte = number % 2 == 0 ? telling[number / 2 % std::size(telling)]
                               : static_cast<char>(number / 2);
    }
    return bytes;
}

} // namespace

int main(int /*argc*/, char** argv) {
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        run(entry.path(), {std::istreambuf_iterator<char>(file), {}});
    }
    for (unsigned seed = 0; seed < randomInputs; ++seed)
        run("random " + std::to_string(seed), randomBytes(seed));
}
