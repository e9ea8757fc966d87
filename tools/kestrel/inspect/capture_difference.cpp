#include "capture_difference.h"

#include "alignment.h"
#include "content_rules.h"
#include "content_types.h"
#include "inspection.h"
#include "problem.h"
#include "xml_lines.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace kestrel::tool {

namespace {

constexpr std::size_t mostLinesShown = 200;

std::string padded(std::string const& text, std::size_t width, bool toTheRight) {
  std::string const padding(width - std::min(width, text.size()), ' ');
  return toTheRight ? padding + text : text + padding;
}

std::string hexadecimal(char byte) {
  constexpr char digits[] = "0123456789abcdef";
  auto const code = static_cast<unsigned char>(byte);
  return {digits[code / 16], digits[code % 16]};
}

std::string nameOf(std::uint32_t type) {
  ContentType const* const found = findContentType(type);
  return found == nullptr ? "type " + std::to_string(type) : found->name;
}

/// How two messages differ; empty where they do not.
std::string difference(CapturedMessage const& left, CapturedMessage const& right) {
  if (left.identifier != right.identifier) {
    return "identifier " + std::to_string(left.identifier) + " / " + std::to_string(right.identifier);
  }
  if (left.bytes == right.bytes) return {};
  std::string text;
  if (left.bytes.size() != right.bytes.size()) {
    text = std::to_string(left.bytes.size()) + " / " + std::to_string(right.bytes.size()) + " bytes, ";
  }
  auto const [one, other] =
      std::mismatch(left.bytes.begin(), left.bytes.end(), right.bytes.begin(), right.bytes.end());
  text += "first at byte " + std::to_string(one - left.bytes.begin());
  bool const bothGoOn = one != left.bytes.end() && other != right.bytes.end();
  return bothGoOn ? text + ": " + hexadecimal(*one) + " / " + hexadecimal(*other) : text;
}

std::string differenceOf(WireMessage const& left, WireMessage const& right) {
  std::string const text = difference(left.captured, right.captured);
  bool const trailerAlone = !text.empty() && left.payload == right.payload && left.trailer != right.trailer;
  return trailerAlone ? text + ", in the trailer, which means nothing" : text;
}

class Comparison {
 public:
  Comparison(NamedCapture const& left, NamedCapture const& right)
      : mNames{printable(left.name), printable(right.name)}, mLeft(left.bytes), mRight(right.bytes) {
    mText = mNames[0] + " / " + mNames[1] + "\n";
    auto const& sends = mLeft.sends();
    auto const& others = mRight.sends();
    for (std::size_t at = 0; at < std::max(sends.size(), others.size()); ++at) {
      compareSends(at < sends.size() ? &sends[at] : nullptr, at < others.size() ? &others[at] : nullptr);
    }
    compareUnreadable(unreadable(mLeft, left.bytes), unreadable(mRight, right.bytes));
    addSummary();
    mText += mChartTexts;
  }

  CaptureDifference take() { return {mDifferent + mAlone[0] + mAlone[1] == 0, std::move(mText)}; }

 private:
  void addRow(CapturedMessage const* left, CapturedMessage const* right, std::string const& name,
              std::string const& verdict) {
    constexpr std::size_t numberWidth = 6;
    constexpr std::size_t nameWidth = 19;
    for (CapturedMessage const* const each : {left, right}) {
      mText += padded(each == nullptr ? "-" : std::to_string(each->number), numberWidth, true) + "  ";
    }
    mText += padded(name, nameWidth, false) + "  " + verdict + "\n";
  }

  void addPair(CapturedMessage const& left, CapturedMessage const& right, std::string const& name,
               std::string const& how) {
    ++(how.empty() ? mSame : mDifferent);
    addRow(&left, &right, name, how.empty() ? "same" : "differs, " + how);
  }

  void addAlone(CapturedMessage const& message, bool onTheRight, std::string const& name) {
    std::size_t const side = onTheRight ? 1 : 0;
    ++mAlone[side];
    addRow(onTheRight ? nullptr : &message, onTheRight ? &message : nullptr, name, "only in " + mNames[side]);
  }

  void addAlone(Content const& content, bool onTheRight) {
    for (WireMessage const* const message : content.messages)
      addAlone(message->captured, onTheRight, nameOf(message->type));
  }

  void addAlone(Send const& send, bool onTheRight) {
    for (Content const& content : send.contents) addAlone(content, onTheRight);
  }

  void compareSends(Send const* left, Send const* right) {
    ++mSends;
    if (left == nullptr) return addAlone(*right, true);
    if (right == nullptr) return addAlone(*left, false);
    auto const alike = [&](std::size_t one, std::size_t other) {
      WireMessage const& message = left->contents[one].first();
      WireMessage const& counterpart = right->contents[other].first();
      return message.type == counterpart.type && message.layout == counterpart.layout;
    };
    for (Pairing const& pairing : align(left->contents.size(), right->contents.size(), alike)) {
      if (!pairing.right) {
        addAlone(left->contents[*pairing.left], false);
      } else if (!pairing.left) {
        addAlone(right->contents[*pairing.right], true);
      } else {
        compareContents(*left, left->contents[*pairing.left], *right, right->contents[*pairing.right]);
      }
    }
  }

  void compareContents(Send const& send, Content const& left, Send const& otherSend, Content const& right) {
    std::size_t const before = mDifferent + mAlone[0] + mAlone[1];
    std::string const name = nameOf(left.type());
    std::size_t const both = std::min(left.messages.size(), right.messages.size());
    for (std::size_t at = 0; at < both; ++at) {
      WireMessage const& one = *left.messages[at];
      WireMessage const& other = *right.messages[at];
      addPair(one.captured, other.captured, name, differenceOf(one, other));
    }
    for (bool const onTheRight : {false, true}) {
      auto const& messages = (onTheRight ? right : left).messages;
      for (std::size_t at = both; at < messages.size(); ++at)
        addAlone(messages[at]->captured, onTheRight, name);
    }
    bool const isText = left.type() == ChartText;
    if (isText && mDifferent + mAlone[0] + mAlone[1] != before) {
      compareChartTexts(decompressed(left, decompressionLimit(send, left)),
                        decompressed(right, decompressionLimit(otherSend, right)));
    }
  }

  void compareChartTexts(std::optional<std::string> const& left, std::optional<std::string> const& right) {
    mChartTexts += "chart text of chart " + std::to_string(mSends) + ":\n";
    if (!left || !right) {
      mChartTexts += "  cannot be compared by lines: " + mNames[left ? 1 : 0] + " has no whole zlib stream\n";
    } else if (*left == *right) {
      mChartTexts += "  the texts are the same, only their compression differs\n";
    } else {
      addLines(xmlLines(*left), xmlLines(*right));
    }
  }

  void addLines(std::vector<std::string> const& left, std::vector<std::string> const& right) {
    auto const equal = [&](std::size_t one, std::size_t other) { return left[one] == right[other]; };
    std::size_t changed = 0;
    for (Pairing const& pairing : align(left.size(), right.size(), equal)) {
      if (pairing.left && pairing.right) continue;
      if (++changed > mostLinesShown) continue;
      bool const onTheRight = pairing.right.has_value();
      std::size_t const at = onTheRight ? *pairing.right : *pairing.left;
      mChartTexts += (onTheRight ? "+" : "-") + padded(std::to_string(at + 1), 6, true) + "  " +
                     printable((onTheRight ? right : left)[at]) + "\n";
    }
    if (changed == 0) mChartTexts += "  only white space between elements differs\n";
    if (changed > mostLinesShown)
      mChartTexts += "  and " + counted(changed - mostLinesShown, "more line") + "\n";
  }

  /// Messages that are none of ours.
  static std::vector<CapturedMessage> unreadable(Inspection const& inspection, std::string_view bytes) {
    std::vector<CapturedMessage> result;
    auto readable = inspection.messages().begin();
    for (CapturedMessage const& captured : readCapture(bytes).messages) {
      bool const isRead =
          readable != inspection.messages().end() && readable->captured.number == captured.number;
      if (isRead) {
        ++readable;
      } else {
        result.push_back(captured);
      }
    }
    return result;
  }

  void compareUnreadable(std::vector<CapturedMessage> const& left,
                         std::vector<CapturedMessage> const& right) {
    constexpr char const* name = "no message of ours";
    std::size_t const both = std::min(left.size(), right.size());
    for (std::size_t at = 0; at < both; ++at)
      addPair(left[at], right[at], name, difference(left[at], right[at]));
    for (std::size_t at = both; at < left.size(); ++at) addAlone(left[at], false, name);
    for (std::size_t at = both; at < right.size(); ++at) addAlone(right[at], true, name);
  }

  void addSummary() {
    mText += counted(mSame, "message") + " the same";
    if (mDifferent > 0) mText += ", " + grouped(mDifferent) + " different";
    for (std::size_t const side : {std::size_t{0}, std::size_t{1}}) {
      if (mAlone[side] > 0) mText += ", " + grouped(mAlone[side]) + " only in " + mNames[side];
    }
    mText += "\n";
  }

  std::array<std::string, 2> mNames;
  Inspection mLeft;
  Inspection mRight;
  std::size_t mSends = 0;
  std::size_t mSame = 0;
  std::size_t mDifferent = 0;
  std::array<std::size_t, 2> mAlone{};
  std::string mText;
  std::string mChartTexts;
};

}  // namespace

CaptureDifference compareCaptures(NamedCapture const& left, NamedCapture const& right) {
  return Comparison(left, right).take();
}

}  // namespace kestrel::tool
