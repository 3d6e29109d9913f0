#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "reader/NOPRParseOutXML.h"

#include "model/NOPRTestRecords.h"
#include "model/NameList.h"
#include "model/RecordOf.h"

#include "refhost/data/VariableData.h"

#include "support/CollectedOutput.h"

inline std::vector<std::string> NamesIn(const NameList& list)
{
    std::vector<std::string> names;
    for (std::size_t place = 0; place < list.size(); ++place)
        names.emplace_back(list[place]);
    return names;
}

/// One document, read: the container, whether the read succeeded and what was reported.
class Reading {
public:
    explicit Reading(std::string document, std::vector<refhost::VariableData> variables = {})
        : fDocument(std::move(document)), fDataSource(refhost::MakeDataSource(std::move(variables)))
    {
        const CollectedOutput output;
        fStats.SetDataSource(fDataSource.get());
        fRead = NOPRParseOutXML(fDataSource.get(), &fStats, &fDocument).Read();
        for (const auto* report : output.All<refhost::ErrorNode>())
            fReports.push_back(report->fText);
    }

    /// The record of the first test of that type; null where there is none.
    template <class Record>
    const Record* First() const
    {
        for (const auto* list : {&fStats.GetTests(), &fStats.GetIntervalTests()})
            for (const auto& test : *list)
                if (const auto* record = RecordOf<Record>(test.get())) return record;
        return nullptr;
    }

    std::string fDocument;
    std::unique_ptr<ProcedureDataSource> fDataSource;
    NOPROutputStats fStats;
    bool fRead = false;
    std::vector<std::string> fReports;
};
