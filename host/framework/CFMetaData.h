#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class CFUpperFunc;

/// A typed value of the data dictionary.
class CFDatum {
public:
    /// `isMissing` is false at every caller here.
    CFDatum(std::string text, bool isMissing);
    explicit CFDatum(std::int64_t integer);
    explicit CFDatum(double number);

    enum class Kind { Text, Integer, Number };
    Kind GetKind() const { return fKind; }
    const std::string& GetText() const { return fText; }
    std::int64_t GetInteger() const { return fInteger; }
    double GetNumber() const { return fNumber; }

private:
    Kind fKind;
    std::string fText;
    std::int64_t fInteger = 0;
    double fNumber = 0.0;
};

/// One value of a field: the typed value and a text.
class CFValue {
public:
    enum FlagType : int { kNoFlag = 0 };
    enum PartitionType : int { kNoPartition = 0 };

    CFValue(CFDatum datum, std::string text, FlagType flag, PartitionType partition);

    const CFDatum& GetDatum() const { return fDatum; }
    const std::string& GetText() const { return fText; }

private:
    CFDatum fDatum;
    std::string fText;
    [[maybe_unused]] FlagType fFlag;
    [[maybe_unused]] PartitionType fPartition;
};

/// One field of the data dictionary. The numbers of its enumerations are the host's.
class CFField {
public:
    enum class FieldType : int {};
    enum class StorageType : int {};
    enum class RoleType : int {};

    CFField(std::string name, FieldType type, StorageType storage, RoleType role);

    void SetLabel(const std::string& label);
    void SetValues(const std::vector<CFValue>& values);
    void SetValueLabels(const std::vector<CFValue>& labels);

    const std::string& GetName() const;
    const std::string& GetLabel() const;
    const std::vector<CFValue>& GetValues() const;

    /// Parallel to `GetValues`; the text of each is the value's label, empty where it has none.
    const std::vector<CFValue>& GetValueLabels() const;

private:
    std::string fName;
    std::string fLabel;
    [[maybe_unused]] FieldType fType;
    [[maybe_unused]] StorageType fStorage;
    [[maybe_unused]] RoleType fRole;
    std::vector<CFValue> fValues;
    std::vector<CFValue> fValueLabels;
};

/// The data dictionary of a result document: fields in their order.
class CFMetaData {
public:
    /// Null makes an empty dictionary.
    explicit CFMetaData(CFUpperFunc* upper);
    ~CFMetaData();
    CFMetaData(const CFMetaData&) = delete;
    CFMetaData& operator=(const CFMetaData&) = delete;

    /// Appends a copy.
    bool AppendField(const CFField& field);

    int FieldCount() const;

    /// Null where the index names no field. The pointer is valid until a field is appended.
    const CFField* GetField(int index) const;

private:
    class Impl;
    std::unique_ptr<Impl> fImpl;
};
