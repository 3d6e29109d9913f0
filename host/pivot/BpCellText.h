#pragma once

#include <memory>
#include <string>

class BpFormatSpec;
class OBS;
class QORT_Variable;

/// How a variable shows: by its label, or by its name where it has none.
enum class Show : int { Preferred = 2 };

/// How a value shows: by its label, or by itself where it has none.
enum class Preference : int { Preferred = 2 };

/// A text of a table: of a heading, a title, a label, a cell or a note. A small handle; copies
/// share what they show, and what takes a text keeps such a copy.
class BpCellText {
public:
    class Impl;

    /// A handle of a copy that later changes of this text don't reach.
    BpCellText Replicate() const;

    /// For the library itself. Never null.
    const std::shared_ptr<Impl>& GetImpl() const { return fImpl; }

protected:
    explicit BpCellText(std::shared_ptr<Impl> impl) : fImpl(static_cast<decltype(impl)&&>(impl)) {}

    std::shared_ptr<Impl> fImpl;
};

/// A string. With `lookup` it is a key of the library's text table, whose text is shown; otherwise
/// it is shown as it stands.
class BpString : public BpCellText {
public:
    BpString(const std::string& string, bool lookup);
};

/// A number in a format; the missing number shows as a missing value.
class BpNumber : public BpCellText {
public:
    BpNumber(double number, const BpFormatSpec& format);
};

/// A variable's label or name. Null shows as nothing.
class BpVariable : public BpCellText {
public:
    BpVariable(const QORT_Variable* variable, Show show);
};

/// A value, labelled and formatted by its variable. A number of an `OBS` is in the result
/// document's unit, a plain number is the host's own. A null variable shows the bare value, a null
/// value the missing one.
class BpDataValue : public BpCellText {
public:
    BpDataValue(const QORT_Variable* variable, double value, Preference preference);
    BpDataValue(const QORT_Variable* variable, const std::string& value, Preference preference);
    BpDataValue(const QORT_Variable* variable, const OBS* value, Preference preference);
};

/// A template with the places ^1, ^2 and so on, filled in order.
class BpComposite : public BpCellText {
public:
    BpComposite(const std::string& string, bool lookup);

    /// Fills the next place, or adds a member to the open sublist.
    void Add(const BpCellText& text);

    /// What is added up to `EndSublist` fills one place as a list.
    void Sublist();
    void EndSublist();

    /// Closes the text; to be called before it is used.
    void Finish();
};

/// A note, made from one text.
class BpAnnotation {
public:
    explicit BpAnnotation(const BpCellText& text) : fText(text) {}
    const BpCellText& GetText() const { return fText; }

private:
    BpCellText fText;
};
