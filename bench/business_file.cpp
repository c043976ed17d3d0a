// Writes the large business of the benchmarks (250 employees, 150 entries a day) as a data folder the
// program can start on, to time its start and measure its memory on a file of some years:
//
//   bench_business_file FOLDER [YEARS]     (five years unless told)
//
// FOLDER receives Tallymere.db with its schedule file open, as a previous run would leave it. Without
// arguments it only says how it is used, so that running every benchmark leaves nothing behind.

#include "common/display_format.h"
#include "store/access.h"
#include "store/options.h"
#include "support/large_business.h"

#include <filesystem>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
    using namespace tallymere;
    if (argc < 2) {
        std::cout << "usage: " << argv[0] << " FOLDER [YEARS]\n";
        return 0;
    }
    const std::filesystem::path folder = argv[1];
    const int years = argc > 2 ? std::stoi(argv[2]) : 5;

    bench::LargeBusiness business(bench::LargeBusinessSize{.years = years});
    auto& s = business.session();
    store::SaveOption(s, "currentschedule", bench::LargeBusiness::kScheduleName);
    store::SaveOption(s, "gs_versionnumber", "2.0");
    store::CloseDB(s);

    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(s.DatabasePath(), folder / "Tallymere.db",
                               std::filesystem::copy_options::overwrite_existing);
    std::cout << (folder / "Tallymere.db").string() << ": " << business.size().days << " days from "
              << common::formatDate(business.firstDay(), "yyyy-mm-dd") << "\n";
    return 0;
}
