#pragma once

#include <memory>
#include <string>

class NOPROutputStats;
class QORT_DataSource;
struct ReaderState;

/// Reads one result document into a container. Borrows all that it is given.
class NOPRParseOutXML {
public:
    /// Without a data source no field has a variable.
    NOPRParseOutXML(const QORT_DataSource* dataSource, NOPROutputStats* stats,
                    const std::string* document);
    ~NOPRParseOutXML();
    NOPRParseOutXML(const NOPRParseOutXML&) = delete;
    NOPRParseOutXML& operator=(const NOPRParseOutXML&) = delete;

    /// True when the whole document was read; a second call then does nothing. False: the container
    /// is not to be used.
    bool Read();

private:
    std::unique_ptr<ReaderState> fState;
};
