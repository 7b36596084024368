#pragma once

#include <cstdint>
#include <vector>

#include "engine/records/TXBlock.h"
#include "engine/records/TXBlockInfo.h"

/// A matrix value. Nothing computes with matrices; the record only keeps its shape.
class TXMatrix {
public:
    std::int32_t rows() const { return rows_; }
    void setRows(std::int32_t rows) { rows_ = rows; }
    std::int32_t columns() const { return columns_; }
    void setColumns(std::int32_t columns) { columns_ = columns; }

private:
    std::int32_t rows_ = 0;
    std::int32_t columns_ = 0;
    std::vector<TXBlock> TXBlocks_;
    std::vector<TXBlockInfo> TXBlockInfo_;
};
