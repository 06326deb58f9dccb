#pragma once

#include <memory>
#include <utility>

namespace tavrin {

/// Drops work that was handed out for later when its owner, to whom it refers, has gone by then. The gate is
/// a field of that owner and closes with it. It says nothing about when or where the work runs. One thread.
class OwnerGate {
  public:
    /// Tells whether the owner is still there. May be kept longer than the gate.
    class Pass {
      public:
        bool isOpen() const { return !open_.expired(); }

        /// Gives the work back as one that does nothing when the owner has gone by the time it is called.
        template <class Work>
        auto guarded(Work work) const {
            return [pass = *this, work = std::move(work)] {
                if (pass.isOpen()) work();
            };
        }

      private:
        friend class OwnerGate;

        struct Open {};

        explicit Pass(std::weak_ptr<const Open> open) : open_(std::move(open)) {}

        std::weak_ptr<const Open> open_;
    };

    OwnerGate() = default;
    /// A gate that was moved from is closed.
    OwnerGate(OwnerGate&&) = default;
    OwnerGate& operator=(OwnerGate&&) = default;

    Pass pass() const { return Pass(open_); }

    template <class Work>
    auto guarded(Work work) const {
        return pass().guarded(std::move(work));
    }

  private:
    std::shared_ptr<const Pass::Open> open_ = std::make_shared<const Pass::Open>();
};

} // namespace tavrin
