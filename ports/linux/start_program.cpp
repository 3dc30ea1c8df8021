#include "linux/start_program.h"

#include <fcntl.h>
#include <sys/auxv.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string_view>
#include <vector>

#include "linux/linux_calls.h"

namespace quorkit::native {
namespace {

constexpr const char* kNothing = "/dev/null";

ErrorCode codeOf(int error) {
    switch (error) {
        case 0:
            return kSuccess;
        case ENOTDIR:
        case ENAMETOOLONG:
            return kFileNotFound;
        case ENOEXEC:
            return kAccessDenied;
        default:
            errno = error;
            return lastError();
    }
}

/// Blocks all signals for this thread, and for a process that it forks, while this object lives.
class SignalsBlocked {
   public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

   private:
    sigset_t before_;
};

}  // namespace

/// Everything that a program is started with.
class Start::Line {
   public:
    explicit Line(std::span<const std::string> words) {
        for (const std::string& word : words) words_.push_back(const_cast<char*>(word.c_str()));
        words_.push_back(nullptr);
        if (getauxval(AT_SECURE) != 0) useFixedPath();
    }

    const char* program() const { return program_.empty() ? words_[0] : program_.c_str(); }
    char* const* words() const { return words_.data(); }
    char* const* environment() const {
        return environment_.empty() ? environ : environment_.data();
    }

   private:
    void useFixedPath() {
        constexpr std::string_view path = "PATH=";
        for (char* const* entry = environ; *entry != nullptr; ++entry)
            if (!std::string_view(*entry).starts_with(path)) environment_.push_back(*entry);
        environment_.push_back(path_.data());
        environment_.push_back(nullptr);
        const std::string_view name = words_[0];
        if (name.find('/') != std::string_view::npos) return;
        for (const char* const folder : {"/usr/local/bin/", "/usr/bin/", "/bin/"}) {
            program_ = std::string(folder).append(name);
            if (access(program_.c_str(), X_OK) == 0) return;
        }
    }

    std::vector<char*> words_;
    std::vector<char*> environment_;
    std::string path_ = "PATH=/usr/local/bin:/usr/bin:/bin";
    std::string program_;
};

Start::Start(const Streams& streams, Session session) {
    posix_spawn_file_actions_init(&files_);
    // The output comes first, because `outputTo` may be one of the standard descriptors, which
    // change below.
    if (streams.outputTo != -1)
        note(posix_spawn_file_actions_adddup2(&files_, streams.outputTo, STDOUT_FILENO));
    else if (streams.output == Streams::Nothing)
        open(STDOUT_FILENO, O_WRONLY);
    if (streams.error == Streams::Nothing) open(STDERR_FILENO, O_WRONLY);
    if (streams.inputFrom != -1) {
        input_ = Descriptor(fcntl(streams.inputFrom, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
        note(input_ ? posix_spawn_file_actions_adddup2(&files_, input_.get(), STDIN_FILENO)
                    : errno);
    } else if (streams.input == Streams::Nothing) {
        open(STDIN_FILENO, O_RDONLY);
    }
    note(posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1));
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                      (session == Session::Own ? POSIX_SPAWN_SETSID : 0);
    posix_spawnattr_setflags(&attributes_, static_cast<short>(flags));
}

Start::~Start() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&files_);
}

void Start::note(int error) {
    if (failure_ == 0) failure_ = error;
}

void Start::open(int stream, int flags) {
    note(posix_spawn_file_actions_addopen(&files_, stream, kNothing, flags, 0));
}

int Start::spawn(const Line& line, pid_t& process) const {
    return posix_spawnp(&process, line.program(), &files_, &attributes_, line.words(),
                        line.environment());
}

ErrorCode Start::run(std::span<const std::string> words, pid_t& process) const {
    if (failure_ != 0) return codeOf(failure_);
    return codeOf(spawn(Line(words), process));
}

ErrorCode Start::runDetached(std::span<const std::string> words) const {
    if (failure_ != 0) return codeOf(failure_);
    // This pipe may have no end, because a process that another thread forks meanwhile keeps it
    // open too.
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return lastError();
    const Descriptor answers(ends[0]);
    const Descriptor answer(ends[1]);
    const Line line(words);
    // A process in between starts the program and ends. It does nothing else, because other threads
    // of this program may hold any lock, and it does not run this program's signal handlers.
    pid_t between = -1;
    {
        const SignalsBlocked blocked;
        between = _Fork();
        if (between == 0) {
            pid_t process = 0;
            const int error = spawn(line, process);
            _exit(write(answer.get(), &error, sizeof error) == sizeof error ? 0 : 1);
        }
    }
    if (between == -1) return lastError();
    unlessInterrupted([&] { return waitpid(between, nullptr, 0); });
    int error = 0;
    const ssize_t told = read(answers.get(), &error, sizeof error);
    return told == sizeof error ? codeOf(error) : kGeneralFailure;
}

}  // namespace quorkit::native
