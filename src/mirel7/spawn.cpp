#include <mirel7/spawn.h>

#include <cerrno>
#include <spawn.h>
#include <sys/wait.h>

#include <thread>

extern char** environ;

namespace mirel7 {

bool SpawnDetached(std::vector<std::string> const& argv) {
    if (argv.empty()) return false;
    std::vector<char*> args;
    for (std::string const& arg : argv)
        args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);
    pid_t pid = 0;
    if (posix_spawnp(&pid, args[0], nullptr, nullptr, args.data(), environ) != 0) return false;
    // A thread of its own waits for this child only, so the program's other children stay its business.
    std::thread([pid] {
        int status = 0;
        while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
        }
    }).detach();
    return true;
}

} // namespace mirel7
