#include "fuzz/recordChecks.h"

#include <cstddef>
#include <cstdint>

#include "engine/records/wellKnown.h"
#include "fuzz/expect.h"

namespace {

bool isWithin(std::int32_t value, std::int32_t end) { return value >= 0 && value < end; }

void checkBlock(const TXBlock& block, std::int32_t list, std::int32_t lists, const TXVariableArray& variables) {
    expect(!block.description().empty() || block.variableID() != -1, "a block has a description");
    const std::int32_t variable = block.variableID();
    expect(variable == -1 || variable == undefinedVariableID || variables.holds(variable), "a block's variable exists");
    const TXBlockPointerList links = block.blockPointers();
    expect(!links.description().empty(), "links have a description");
    for (std::int32_t index = 0; index < links.size(); ++index) {
        const std::int32_t target = links.blockPointerIDAt(index);
        expect(target > list && target < lists, "a link leads to a later list");
        expect(!links[index].description().empty(), "a link has a description");
    }
}

void checkSide(const TXBlockLists* side, const TXVariableArray& variables) {
    if (side == nullptr) return;
    const TXBlockLists& lists = *side;
    expect(!lists.empty(), "a side that exists has its top level");
    std::int32_t blocks = 0;
    for (std::int32_t list = 0; list < lists.size(); ++list) {
        const TXBlockInfo& info = lists.info()[static_cast<std::size_t>(list)];
        expect(!info.description().empty(), "a list has a description");
        blocks += info.blockRange().length;
        if (list == 0) {
            expect(info.parentIndex() == -1, "the top level hangs nowhere");
        } else {
            expect(isWithin(info.parentIndex(), list), "a list hangs in an earlier one");
            const auto siblings = static_cast<std::int32_t>(lists[info.parentIndex()].size());
            expect(isWithin(info.parentSubIndex(), siblings), "a list hangs at a block that exists");
        }
        for (const TXBlock& block : lists[list]) checkBlock(block, list, lists.size(), variables);
    }
    expect(blocks == lists.blockCount(), "every block belongs to one list");
}

}  // namespace

void checkEquation(const TXEquation& equation, const TXVariableArray& variables) {
    expect(!equation.description().empty(), "an equation has a description");
    checkSide(equation.leftEquationBlocks(), variables);
    checkSide(equation.rightEquationBlocks(), variables);
}

void checkVariables(const TXEquationController& controller) {
    const TXVariableArray& variables = controller.variableArray();
    for (std::int32_t position = 0; position < variables.size(); ++position) {
        const TXVariable& variable = variables[position];
        expect(variable.variableIndex() == position, "a variable knows its position");
        expect(!variable.variableName().empty(), "a variable has a name");
        expect(variable.description().starts_with(variable.variableName()), "a variable's description names it");
        const std::int32_t first = controller.getVariableIndexForString(variable.variableName());
        expect(first >= 0 && first <= position, "a name is found");
        expect(variables[first].variableName() == variable.variableName(), "a name leads to a variable of that name");
    }
    const TXVariable& pi = variables[0];
    expect(pi.variableName() == piName && pi.isLocked() && pi.number() == piValue, "pi stays what it is");
    const TXVariable& answer = variables[answerPosition];
    expect(answer.variableName() == answerName && answer.isAutoCached(), "the answer stays in its place");
}
