// Whether a document that is edited for days grows: each edit, with what undoes it, a million times. A row tells the most
// bytes that were in use at any time of the first tenth and of the rest.
//   xmlconfig_growth [REPETITIONS]

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "tests/shortage/Allocations.h"
#include "tests/shortage/Edits.h"

namespace {

/// True where the memory ends at what the first tenth took.
bool printRow(const edits::Edit& edit, int repetitions) {
    ConfigInfo document;
    edits::prepare(document);
    const std::size_t first = edits::mostBytes(edit, document, repetitions / 10);
    const std::size_t later = edits::mostBytes(edit, document, repetitions - repetitions / 10);
    const bool isFlat = later <= first + edits::slack;
    std::printf("%-33s %12zu %12zu  %s\n", edit.name, first, later, isFlat ? "flat" : "GROWS");
    return isFlat;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    try {
        allocations::startXmlLibrary();
        const int repetitions = argumentCount > 1 ? std::atoi(arguments[1]) : 1'000'000;
        std::printf("%-33s %12s %12s  after %d times\n", "edit", "first tenth", "the rest", repetitions);
        int growing = 0;
        for (const edits::Edit& edit : edits::all()) growing += printRow(edit, repetitions) ? 0 : 1;
        std::printf("%zu edits, %d grow\n", edits::all().size(), growing);
        return growing == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::cerr << "xmlconfig_growth: " << error.what() << "\n";
        return EXIT_FAILURE;
    }
}
