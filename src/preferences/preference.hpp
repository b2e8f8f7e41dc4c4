#pragma once
// A preference as a value: its key, its default and its range together, with the read and the write of its type.
//
// Write stores and synchronises at once, as settings do. Store leaves the synchronising to the caller, who has more to
// store, or to the store's own schedule.

#include "preferences/stores.hpp"
#include "preferences/typed_reads.hpp"

#include <algorithm>

namespace corvel {

/// The lowest and the highest value of a kind: that a control of the settings panel can choose, or that is of use.
struct Range {
    double least = 0;
    double most = 0;

    constexpr double middle() const {
        return (least + most) / 2;
    }
    constexpr double Clamped(double value) const {
        return std::clamp(value, least, most);
    }
};

/// What preferences of all types have: a key in the host's standard user defaults.
class Preference {
  public:
    constexpr explicit Preference(ns::Literal key) : key_(key) {}

    ns::String key() const {
        return key_;
    }
    bool Is(ns::String key) const {
        return key.isEqualToString(key_);
    }

  protected:
    static ns::UserDefaults Defaults() {
        return ns::UserDefaults::standardUserDefaults();
    }

  private:
    ns::Literal key_;
};

class BoolPreference : public Preference {
  public:
    constexpr explicit BoolPreference(ns::Literal key, bool initial = false) : Preference(key), initial_(initial) {}

    /// NO when absent, whatever the initial value.
    bool Read() const {
        return ReadBoolPreference(key());
    }
    void Write(bool value) const {
        StoreBool(key(), value);
        SynchronizeDefaults();
    }
    /// Stores the initial value while there is none.
    void StoreInitial() const {
        if (!Defaults().objectForKey(key())) {
            StoreBool(key(), initial_);
        }
    }
    constexpr bool initial() const {
        return initial_;
    }

  private:
    bool initial_;
};

class FloatPreference : public Preference {
  public:
    /// What is stored below or above the usable range, which an import may bring, counts as its end.
    constexpr FloatPreference(ns::Literal key, double fallback, Range slider, Range usable)
        : Preference(key), fallback_(fallback), slider_(slider), usable_(usable) {}

    double Read() const {
        return usable_.Clamped(ReadFloatPreference(key(), fallback_));
    }
    /// What a slider shows: with nothing stored it stands in the middle, whatever is in use then. That is wanted.
    double ReadForSlider() const {
        return ReadFloatPreference(key(), slider_.middle());
    }
    void Write(float value) const {
        StoreFloat(key(), value);
        SynchronizeDefaults();
    }
    constexpr double fallback() const {
        return fallback_;
    }
    constexpr Range slider() const {
        return slider_;
    }
    constexpr Range usable() const {
        return usable_;
    }

  private:
    double fallback_;
    Range slider_;
    Range usable_;
};

/// A coordinate on the screen, in points; its default follows from the screen's length in that direction.
class PlacePreference : public Preference {
    /// Beyond any screen, and far from where the platform's arithmetic ends.
    static constexpr Range kUsable{-100'000, 100'000};

  public:
    constexpr PlacePreference(ns::Literal key, double share, double offset)
        : Preference(key), share_(share), offset_(offset) {}

    /// By default the share of the screen's length (points) plus the offset (points).
    double Read(double screenLength) const {
        return kUsable.Clamped(ReadFloatPreference(key(), (screenLength * share_) + offset_));
    }
    void Store(double value) const {
        StoreFloat(key(), static_cast<float>(value));
    }
    constexpr double share() const {
        return share_;
    }
    constexpr double offset() const {
        return offset_;
    }

  private:
    double share_;
    double offset_;
};

class IntegerPreference : public Preference {
  public:
    constexpr IntegerPreference(ns::Literal key, long least, long most) : Preference(key), least_(least), most_(most) {}

    /// 0 when absent; what is stored may lie outside the range.
    long Read() const {
        return ReadIntegerPreference(key());
    }
    void Write(long value) const {
        StoreInteger(key(), value);
        SynchronizeDefaults();
    }
    /// The value moved into the range.
    constexpr long Clamped(long value) const {
        return std::clamp(value, least_, most_);
    }
    constexpr long least() const {
        return least_;
    }
    constexpr long most() const {
        return most_;
    }

  private:
    long least_;
    long most_;
};

class StringPreference : public Preference {
  public:
    constexpr StringPreference(ns::Literal key, ns::Literal fallback) : Preference(key), fallback_(fallback) {}

    /// The default when absent or empty.
    ns::String Read() const {
        return ReadStringPreference(key(), fallback_);
    }
    void Write(ns::String value) const {
        Store(value);
        SynchronizeDefaults();
    }
    void Store(ns::String value) const {
        StoreObject(key(), value);
    }
    void Remove() const {
        StoreObject(key(), nullptr);
        SynchronizeDefaults();
    }
    ns::String fallback() const {
        return fallback_;
    }

  private:
    ns::Literal fallback_;
};

} // namespace corvel
