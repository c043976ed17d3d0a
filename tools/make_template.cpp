// Builds the template database from the schema and seed files: make_template OUT SCHEMA SEED.

#include "store/template_builder.h"

#include <fstream>
#include <iostream>
#include <sstream>

namespace {
std::string readFile(const char* path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}
}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: tallymere_make_template OUT SCHEMA SEED\n";
        return 2;
    }
    const std::string error = tallymere::store::buildTemplate(argv[1], readFile(argv[2]), readFile(argv[3]));
    if (!error.empty()) {
        std::cerr << "tallymere_make_template: " << error << "\n";
        return 1;
    }
    return 0;
}
