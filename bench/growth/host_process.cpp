#include "host_process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "figures.h"

namespace {

std::filesystem::path HostOf(const std::string& tree) {
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe");
    return own.parent_path().parent_path() / "growth_hosts" / tree / "bin" / "growth_host";
}

bool Run(std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    pid_t process = 0;
    int status = 0;
    return posix_spawn(&process, arguments.front(), nullptr, nullptr, arguments.data(), environ) ==
               0 &&
           waitpid(process, &status, 0) == process && status == 0;
}

}  // namespace

std::vector<double> RunHost(const std::string& tree, const std::filesystem::path& directory,
                            const std::vector<std::string>& arguments) {
    const std::filesystem::path files = directory / "host";
    std::filesystem::create_directory(files);
    const std::string result = (files / "figures.txt").string();
    std::vector<std::string> command = {HostOf(tree).string(), result};
    command.insert(command.end(), arguments.begin(), arguments.end());
    Require(Run(command), command.front() + ' ' + arguments.front() + " failed");
    std::ifstream stream(result);
    std::vector<double> figures{std::istream_iterator<double>(stream),
                                std::istream_iterator<double>()};
    std::filesystem::remove_all(files);
    return figures;
}
