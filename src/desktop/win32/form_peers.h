// The peers of all controls of one form, in a tree as the controls'.
#pragma once

#include <memory>
#include <vector>

#include "desktop/win32/peer.h"
#include "toolkit/controls.h"

namespace tidemark {

class FormPeers {
 public:
  // Makes the windows of the form's controls in the form's window. Controls that lie wholly outside
  // their container get none.
  FormPeers(Form& form, Resources& resources, HWND window);
  ~FormPeers();
  FormPeers(const FormPeers&) = delete;
  FormPeers& operator=(const FormPeers&) = delete;

  // Brings all that can be seen in line with the controls, also which lies over which.
  void Refresh();
  void Forget();
  void Abandon();

  // Null for a control that has no window.
  HWND WindowOf(const Control& control) const;

  // Those that the keyboard can reach now, in reading order: from top to bottom, those of one line
  // from left to right. Hidden, disabled and covered controls are left out.
  std::vector<Peer*> Reachable() const;
  // Whether it would be among them.
  static bool IsReachable(const Peer& peer);

 private:
  struct Node;
  void Grow(Node& node, Resources& resources, HWND window);
  static void RefreshNode(Node& node);
  static void RefreshOrder(Node& node);
  template <class Act>
  static void ForAll(Node& node, Act act);

  std::unique_ptr<Node> root_;
};

}  // namespace tidemark
