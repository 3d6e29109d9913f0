#include "refhost/run/QueuedSink.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <stdexcept>
#include <string>

#include "refhost/document/WriteFailure.h"

namespace refhost {
namespace {

constexpr int kNever = -1;

/// Writes down what it gets, and can't take one of the reports.
class Scribe : public OutputSink {
public:
    explicit Scribe(int unwritable = kNever) : fUnwritable(unwritable) {}

    bool PreparesNodes() const override { return true; }
    void Prepare(OutputNode& node) const override
    {
        const int number = std::get<ErrorNode>(node.fContent).fShow;
        if (number % 5 == 3) throw std::bad_alloc();
        node.fPrepared += std::to_string(number);
    }

    void Begin(const RunStart&) override { fRecord += "begin "; }
    void BeginSplit(std::size_t split) override { fRecord += "{" + std::to_string(split) + " "; }
    void EndSplit() override { fRecord += "} "; }
    void OpenHeading(TextRef) override { fRecord += "< "; }
    void CloseHeading() override { fRecord += "> "; }
    void Node(OutputNodePtr&& node) override
    {
        const int number = std::get<ErrorNode>(node->fContent).fShow;
        if (number == fUnwritable) throw WriteFailure("full");
        fRecord += (node->fPrepared.empty() ? std::to_string(number) : node->fPrepared) + " ";
        ++fNodes;
    }
    void End(const RunEnd&) override { fRecord += "end"; }

    std::string fRecord;
    std::atomic<int> fNodes = 0;

private:
    int fUnwritable;
};

void Report(OutputSink& sink, int number)
{
    sink.Node(std::make_unique<OutputNode>(OutputNode{ErrorNode{"", number, 0}}));
}

/// Splits of one report under a heading and the others behind it.
void WriteSplits(OutputSink& sink, std::size_t splits, int reports)
{
    sink.Begin({});
    for (std::size_t split = 0; split < splits; ++split) {
        sink.BeginSplit(split);
        sink.OpenHeading(nullptr);
        for (int number = 0; number < reports; ++number) {
            Report(sink, number);
            if (number == 0) sink.CloseHeading();
        }
        sink.EndSplit();
    }
    sink.End({});
}

TEST(QueuedSink, HandsEverythingOnInOrder)
{
    for (const int reports : {1, 30, 31, 32, 33, 10000}) {  // around a batch, and many
        Scribe direct;
        WriteSplits(direct, 3, reports);
        for (const std::size_t threads : {1U, 2U, 7U}) {
            SCOPED_TRACE(testing::Message() << reports << " reports, threads: " << threads);
            Scribe queued;
            {
                QueuedSink sink(queued, threads);
                WriteSplits(sink, 3, reports);
            }
            EXPECT_EQ(queued.fRecord, direct.fRecord);
        }
    }
}

TEST(QueuedSink, HasWrittenASplitWhenItEnds)
{
    Scribe scribe;
    QueuedSink sink(scribe);
    for (int split = 0; split < 200; ++split) {
        sink.BeginSplit(0);
        Report(sink, 7);
        sink.EndSplit();
        ASSERT_EQ(scribe.fNodes, split + 1);
    }
}

TEST(QueuedSink, ThrowsWhatTheOtherSinkThrewAndWritesNoMore)
{
    struct Row {
        int fReports;
        int fUnwritable;
        const char* fWhy;
    };
    for (const Row& row : {Row{1, 0, "told at the split's end"}, Row{500, 499, "the last of many"},
                           Row{100000, 3, "told while there is more to come"}}) {
        SCOPED_TRACE(row.fWhy);
        Scribe scribe(row.fUnwritable);
        {
            QueuedSink sink(scribe, 3);
            EXPECT_THROW(WriteSplits(sink, 2, row.fReports), WriteFailure);
            EXPECT_THROW(sink.EndSplit(), WriteFailure) << "and again";
            EXPECT_THROW(sink.End({}), WriteFailure);
        }
        EXPECT_EQ(scribe.fNodes, row.fUnwritable);
    }
}

TEST(QueuedSink, DropsWhatWaitsWhenItIsLeft)
{
    for (const int reports : {0, 1, 64, 100, 1000}) {
        SCOPED_TRACE(reports);
        Scribe scribe;
        {
            QueuedSink sink(scribe, 3);
            for (int number = 0; number < reports; ++number)
                Report(sink, number);
        }
        EXPECT_LE(scribe.fNodes, reports);
        EXPECT_EQ(scribe.fRecord.find("end"), std::string::npos);
    }
}

}  // namespace
}  // namespace refhost
