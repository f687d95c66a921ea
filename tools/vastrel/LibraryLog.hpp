#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace vastrel::tool {

// Routes the library's log lines away from the default timestamped stderr output, which
// would mix the decoder's per-level summaries into the tool's own output. Lines are kept so
// that a subcommand can turn the ones that matter into warnings; with verbose set they are
// also written to err at once as "vastrel: log: <line>". Installed for the object's
// lifetime; one at a time.
class LibraryLog {
  public:
    LibraryLog(bool verbose, std::ostream& err);
    ~LibraryLog();
    LibraryLog(const LibraryLog&) = delete;
    LibraryLog& operator=(const LibraryLog&) = delete;

    // The lines logged since the last call, oldest first; forgets them.
    std::vector<std::string> take();

    // True when verbose was asked for, so every line has already been shown.
    [[nodiscard]] bool verbose() const { return verbose_; }

  private:
    bool verbose_;
    std::ostream& err_;
    std::vector<std::string> lines_;
};

}  // namespace vastrel::tool
