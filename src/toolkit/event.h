// What a control raises and a handler is bound to. The conventions of all controls:
//
// - An event is raised by what a person does (the front end calls Click(), UserCheck(), ...), never
//   by a procedure that sets a property.
// - A control has changed its own state before it raises the event.
// - One handler per event. A handler may do anything to the control that raised it, clearing a list
//   included: the control touches no row of its own after the handler has returned.
#pragma once

#include <functional>
#include <utility>

namespace tidemark {

template <class... Arguments>
class Event {
 public:
  void Bind(std::function<void(Arguments...)> handler) { handler_ = std::move(handler); }
  bool IsBound() const { return static_cast<bool>(handler_); }

  // Does nothing while no handler is bound. The handler is copied first, for it may destroy the
  // control whose event this is.
  void operator()(Arguments... arguments) const {
    if (!handler_) return;
    const auto handler = handler_;
    handler(arguments...);
  }

 private:
  std::function<void(Arguments...)> handler_;
};

}  // namespace tidemark
