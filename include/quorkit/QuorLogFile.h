// Appends entries to a log file, one line each, with date and time, user, machine and level in
// front as wanted.
//
// An entry is with the operating system before the member returns. Programs that write one file at
// once lose nothing: each entry goes to its end in one piece. The file's text is code page 1252
// ("?" for what it lacks), or what a byte-order mark at its start says.
//
// An object that keeps the file open without a size limit of its own keeps others from shortening
// it; with a limit it goes on in the file that another program has put in its place. A file that is
// deleted or replaced is made anew by the next entry, and one that is moved.
//
// A process that is killed leaves at most the entry under way torn; the next one of any process
// begins a line of its own. Why something could not be written tells ports::takeReason.
//
// All this is true of the processes of one machine; on a network file system it is as good as the
// locks and appends of that.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/files.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/system.h>
#include <quorkit/values.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorkit {

class QuorLogFile {
   public:
    explicit QuorLogFile(Ports& ports = ports::native()) : ports_(ports) {}
    ~QuorLogFile() { CloseLogfile(); }
    QuorLogFile(const QuorLogFile&) = delete;
    QuorLogFile& operator=(const QuorLogFile&) = delete;

    // --- Settings ---
    //
    // Read at each entry. A file that is open stays the same when LogFileName changes, until the
    // size is looked at next: then the file of that name is the open one.

    /// The file to write, with its folder: "app.log" alone writes nothing, "./app.log" does. "" at
    /// first, then nothing is written. On assignment placeholders are
    /// replaced as by GQuorStrings.ExpandEnvironmentString; error 28 as there.
    const String& LogFileName() const { return name_; }
    void setLogFileName(const String& name);
    /// False, as at first: the first time this object opens the file it empties it, and whenever
    /// it opens it with AutoOpenClose False. Assigning it makes the next time the first.
    Boolean Append() const { return append_; }
    void setAppend(Boolean append);
    /// The size in bytes beyond which the file is shortened; 0, as at first, and less for none. It
    /// is looked at before the 1st, 51st, 101st ... entry. See limitFileSize.
    Long MaxFileSize() const { return maxFileSize_; }
    void setMaxFileSize(Long size) { maxFileSize_ = size; }
    /// Whether the file is opened before and closed after each entry; True at first. Assigning it
    /// makes the next opening the first, see Append.
    Boolean AutoOpenClose() const { return autoOpenClose_; }
    void setAutoOpenClose(Boolean autoOpenClose);
    /// Entries of a higher level are dropped; eLogEntryType_Error at first.
    eLogEntryType LogLevel() const { return logLevel_; }
    void setLogLevel(eLogEntryType level) { logLevel_ = level; }
    /// The prefixes of a line, a sum of eLogFormat numbers; none at first. User and machine are the
    /// environment variables "Username" and "ComputerName", "" when there are none.
    eLogFormat LogFormat() const { return logFormat_; }
    void setLogFormat(eLogFormat format) { logFormat_ = format; }
    /// What stands behind each prefix; two blanks at first.
    const String& LogFieldSeparator() const { return separator_; }
    void setLogFieldSeparator(const String& separator) { separator_ = separator; }

    // --- The file ---

    Boolean isFileOpen() { return file_ != Handle::Invalid; }
    /// Opens the file and makes it and the folders around it as needed. True when it is open, and
    /// when there is no name. False when it cannot be, as for a name without any folder ("a.log");
    /// what was in the file is then still there.
    Boolean OpenLogfile();
    /// Closes the file when it is open.
    void CloseLogfile();

    /// Writes one entry. `s` gets the prefixes in front and so becomes the line as written, without
    /// its end; not for levels -1 and -2, whose entries have no prefixes. Always True, also when
    /// the entry was dropped or could not be written. On a full disk a file with a limit is
    /// shortened at once.
    Variant writeLogfileEntry(String& s, Unchanged<eLogEntryType> level);

    /// The level as a text of 9 characters (eLogEntryType_TestDump: 10); "" for a number that is no
    /// level. Without the blanks at its end when LogFieldSeparator is a single character.
    String levelNrToLevelText(Unchanged<eLogEntryType> level);

    /// Cuts off the older part of a file that is larger than `MaxFileSize` bytes: about the newest
    /// 80 % of the limit stay, from the start of a line on, without the last two bytes, the end of
    /// the last line, so that the next entry of this object continues that line. Of a UTF-16 file
    /// with byte-order mark the older half stays instead, without the mark. What stays is written
    /// to another file, which then takes the place of the old one in one step; in place when the
    /// disk has no room for it.
    ///
    /// True when it is no larger, or has been shortened. False when it cannot be, when no line
    /// begins in the part that would stay, or when an object without a limit keeps it open, this
    /// one included: it is then as it was.
    Boolean limitFileSize(Unchanged<String> sFileName, Unchanged<Long> MaxFileSize);

   private:
    enum class Opening { AsSet, Continue };
    bool open(Opening opening);
    ErrorCode openFile(bool empty);
    void reopen();
    void close();
    ErrorCode readMark();
    void keepWithinLimit();
    void addPrefixes(String& s, eLogEntryType level);
    const String& now();
    bool continuesLine();
    ErrorCode write(const String& line);

    Ports& ports_;
    String name_;
    Boolean append_ = false;
    Long maxFileSize_ = 0;
    Boolean autoOpenClose_ = true;
    eLogEntryType logLevel_ = eLogEntryType_Error;
    eLogFormat logFormat_ = eLogFormat_Normal;
    String separator_ = u"  ";

    Handle file_ = Handle::Invalid;
    String openName_;        ///< its name, also when LogFileName has changed
    std::string_view mark_;  ///< its byte-order mark
    /// At this size of the file the next entry continues the last line, which this object has left
    /// without its end by shortening the file; or there is only a mark.
    std::optional<std::uint64_t> unfinishedAt_;
    bool keptOpen_ = false;  ///< from OpenLogfile to CloseLogfile, with AutoOpenClose False
    bool firstOpening_ = true;
    Long entries_ = 0;  ///< counted for the limit

    SystemTime second_;  ///< the one that `dateAndTime_` shows
    String dateAndTime_;
    std::string line_;  ///< as it goes to the file
};

}  // namespace quorkit
