// Appends entries to a log file, one line each. Date and time, user, machine and level can be put
// in front.
//
// An entry has reached the operating system before the member returns. Several programs can write
// one file at once without loss: each entry goes to its end in one piece. The file's text is code
// page 1252 ("?" for characters that it lacks), unless a byte-order mark at its start says
// otherwise.
//
// An object that keeps the file open keeps others from shortening it, unless it has a size limit of
// its own: then it continues in the file that another program has put in place. When the file is
// deleted, replaced or moved, the next entry makes a new one.
//
// A process that is killed leaves at most one torn entry, the one it was writing; the next entry,
// from any process, begins a new line. ports::takeReason tells why something could not be written.
//
// This holds for the processes of one machine. On a network file system it holds as far as the file
// system's locks and appends work.
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
    // Settings are read at each entry. An open file stays open when LogFileName changes; the object
    // goes over to the file of the new name when it next checks the size.

    /// The file to write, with its folder: "app.log" alone writes nothing, "./app.log" does. "" at
    /// first; then nothing is written. Placeholders are replaced on assignment, as by
    /// GQuorStrings.ExpandEnvironmentString, with the same error 28.
    const String& LogFileName() const { return name_; }
    void setLogFileName(const String& name);
    /// With False, as at first, the object empties the file when it opens it for the first time,
    /// and with AutoOpenClose False whenever it opens it. After an assignment the next opening
    /// counts as the first.
    Boolean Append() const { return append_; }
    void setAppend(Boolean append);
    /// The size in bytes beyond which the file is shortened. 0, as at first, and negative numbers
    /// mean no limit. The size is checked before the 1st, 51st, 101st ... entry. See limitFileSize.
    Long MaxFileSize() const { return maxFileSize_; }
    void setMaxFileSize(Long size) { maxFileSize_ = size; }
    /// Whether the file is opened before each entry and closed after it; True at first. After an
    /// assignment the next opening counts as the first, see Append.
    Boolean AutoOpenClose() const { return autoOpenClose_; }
    void setAutoOpenClose(Boolean autoOpenClose);
    /// Entries of a level above this one are dropped; eLogEntryType_Error at first.
    eLogEntryType LogLevel() const { return logLevel_; }
    void setLogLevel(eLogEntryType level) { logLevel_ = level; }
    /// The prefixes of a line, as a sum of eLogFormat numbers; none at first. User and machine are
    /// the environment variables "Username" and "ComputerName", or "".
    eLogFormat LogFormat() const { return logFormat_; }
    void setLogFormat(eLogFormat format) { logFormat_ = format; }
    /// The text behind each prefix; two blanks at first.
    const String& LogFieldSeparator() const { return separator_; }
    void setLogFieldSeparator(const String& separator) { separator_ = separator; }

    // --- The file ---

    Boolean isFileOpen() { return file_ != Handle::Invalid; }
    /// Opens the file, and makes it and the folders above it as needed. True when it is open, and
    /// also when there is no name. False when it cannot be opened, as for a name without a folder
    /// ("a.log"); the content of the file is then unchanged.
    Boolean OpenLogfile();
    /// Closes the file when it is open.
    void CloseLogfile();

    /// Writes one entry. `s` gets its prefixes and is then the line as written, without its end;
    /// entries of the levels -1 and -2 have no prefixes. Always True, even when the entry was
    /// dropped or could not be written. When the disk is full, a file with a limit is shortened at
    /// once.
    Variant writeLogfileEntry(String& s, Unchanged<eLogEntryType> level);

    /// The level as a text of 9 characters (10 for eLogEntryType_TestDump); "" for a number that is
    /// no level. When LogFieldSeparator is a single character, the blanks at the end are left out.
    String levelNrToLevelText(Unchanged<eLogEntryType> level);

    /// Cuts off the older part of a file that is larger than `MaxFileSize` bytes. About the newest
    /// 80 % of the limit stay, from the start of a line on. The last two bytes, the end of the last
    /// line, are cut off as well, so the next entry of this object continues that line. Of a UTF-16
    /// file with a byte-order mark the older half stays instead, without the mark. The remaining
    /// part is written to another file, which replaces the old one in one step; when the disk has
    /// no room for that, it is written in place.
    ///
    /// True when the file is not larger than the limit or has been shortened. False when it cannot
    /// be shortened, when no line begins in the part that would stay, or when an object without a
    /// limit, this one included, keeps it open; the file is then unchanged.
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
    String openName_;        ///< the name of the open file, which stays when LogFileName changes
    std::string_view mark_;  ///< the byte-order mark of the open file
    /// The size of the file at which the next entry does not begin a new line: this object has
    /// shortened the file and left its last line without end, or the file holds only a mark.
    std::optional<std::uint64_t> unfinishedAt_;
    bool keptOpen_ = false;  ///< from OpenLogfile to CloseLogfile, with AutoOpenClose False
    bool firstOpening_ = true;
    Long entries_ = 0;  ///< since the first one; the limit is checked at every 50th

    SystemTime second_;  ///< the second that `dateAndTime_` shows
    String dateAndTime_;
    std::string line_;  ///< the encoded line
};

}  // namespace quorkit
