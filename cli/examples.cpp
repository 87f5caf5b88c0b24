#include "cli/examples.h"

#include "cli/errors.h"
#include "rows/runner.h"

namespace vx::cli {

Tried tryExamples(const catalog::Entry& entry, const Library& library) {
    if (!*entry.examples) throw UsageError(std::string(entry.main()) + " has no examples");
    std::vector<rows::Block> blocks = rows::parse("example", entry.examples);
    rows::Host host{[&](const char* name) { return library.find(name); }, nullptr};
    rows::Report report = rows::run(blocks, host);
    Tried tried{entry.examples, report.failures.empty()};
    if (report.left > 0) {
        tried.text += "Not run here: the examples need a made-up machine, on which the tests run them.\n";
    } else if (tried.allAsSaid) {
        tried.text += "All as said.\n";
    }
    for (const std::string& failure : report.failures) tried.text += failure + "\n";
    return tried;
}

}  // namespace vx::cli
