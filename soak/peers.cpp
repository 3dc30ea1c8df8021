// The same work by others: adding a key by reading, changing and saving the whole file; and writing
// the entries of a log.
#include <glib.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include "log_entries.h"
#include "worker.h"

namespace quorkit::soak {

Perform keyFileWriter(const Job& job) {
    return [job](std::uint32_t step) {
        GKeyFile* keys = g_key_file_new();
        // A file that cannot be read counts as empty.
        g_key_file_load_from_file(keys, job.file, G_KEY_FILE_KEEP_COMMENTS, nullptr);
        g_key_file_set_value(keys, "Shared", newKeyOf(job.worker, step).c_str(),
                             newValueOf(step).c_str());
        const bool saved = g_key_file_save_to_file(keys, job.file, nullptr) != 0;
        g_key_file_free(keys);
        return saved ? Answer::Yes : Answer::No;
    };
}

Perform spdlogWriter(const Job& job) {
    const auto log = spdlog::basic_logger_mt("soak", job.file);
    log->set_pattern("%v");
    if (job.flush) log->flush_on(spdlog::level::trace);
    return [log, job](std::uint32_t step) {
        log->info(entryBytesOf(job, step));
        return Answer::Yes;
    };
}

}  // namespace quorkit::soak
