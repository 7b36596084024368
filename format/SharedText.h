#pragma once

#include <atomic>
#include <forward_list>
#include <mutex>
#include <string>
#include <string_view>

/// A text that one thread may replace while others read it.
///
/// Reading takes no lock, since every answer reads one. In exchange each different value is kept as long as the
/// SharedText lives; a setting has few of them.
class SharedText {
public:
    /// Begins with its own copy of `text`.
    explicit SharedText(std::u16string_view text);
    /// Begins with the text that the other has now. What is set later is each one's own.
    SharedText(const SharedText& other) : SharedText(other.text()) {}
    /// Sets the text that the other has now.
    SharedText& operator=(const SharedText& other);
    ~SharedText() = default;

    /// The text as last set. The reference stays good, and what it refers to the same, as long as this object lives.
    const std::u16string& text() const { return *current_.load(std::memory_order_acquire); }

    /// Keeps its own copy of `text`.
    void setText(std::u16string_view text);

private:
    std::mutex setting_;                        ///< Held while values_ grows.
    std::forward_list<std::u16string> values_;  ///< Every value so far: a reader may still be looking at one.
    std::atomic<const std::u16string*> current_;
};
