"""The check of an executable says what the library does when the simulator registers the same classes."""

import re
import unittest

from inspection import HOSTS, LAYOUTS, Inspection, classes_of, play_app

PROBE = "probe"
SENDERS = {"douyin": "DY", "xhs": "XHS", "kuaishou": "KS", "wechat": "FC"}
EVENTS = {"kuaishou": ['host enter "a"', 'host preview "a"']}
# What else the app does that a hook waits for: object, class, method, arguments.
USES = {
    "douyin": [("fragment 1", "HTSLiveCommentFragment", "commentBegan", "")],
    "kuaishou": [("service 1", "KSLiveCommentService", "comment:completion:", '"by hand" block 1')],
}
OPTIONS = {f"Corvel.latency.{name}" for name in ("strictDanmakuBuffer", "forceCachalot", "streamDataFirst",
                                                 "playerOptimization")}
WHOLE = {"douyin": 'host enter "7311" at roomModel.identifier'}


class Agreement(Inspection):
    def agree(self, host, plan=(), sends=True):
        """Holds the check against the library for the app with this plan, in which comments can be sent unless the app's own
        events do not fit the types of its methods; what the check said."""
        script = ["print host replaced"]
        if sends:
            script += EVENTS.get(host, [WHOLE.get(host, 'host enter "a"')])
            script += [f"host call {name} {selector} {words}" for name, cls, selector, words in USES.get(host, [])
                       if not {f"without class {cls}", f"without method {cls} {selector}"} & set(plan)]
            script += [f'call {SENDERS[host]}_SendMessage "{PROBE}"', "print comments"]
        classes, said = play_app(host, plan, script)
        found = self.host(self.made(classes), host)

        hooked = sorted(f'{hook["class"]} {hook["method"]}' for hook in found["hooks"]
                        if hook["verdict"] in ("present", "inherited"))
        self.assertEqual(hooked, sorted(fact for fact in said["host replaced"] if fact != "absent"), plan)
        if sends:
            arrived = [re.search(r' path (\w+)', fact)[1] for fact in said.get("comments", []) if f'"{PROBE}"' in fact]
            self.assertEqual([path["name"] for path in found["paths"] if path["works"]][:1], arrived[:1], plan)
        return found

    def every_change(self, host):
        """The whole app, then the app without each of the things that are wanted, and with each method in its base."""
        whole = self.agree(host)
        self.assertTrue(whole["works"])
        self.assertTrue(all(path["works"] for path in whole["paths"]))
        steps = [step for path in whole["paths"] for step in path["steps"]]
        methods = {(entry["class"], entry["method"]) for entry in whole["hooks"] + steps if "method" in entry}
        own = classes_of(host)
        for name, selector in sorted(methods):
            if selector in own.methods.get(name, {}):
                lacking = self.agree(host, [f"without method {name} {selector}"])
                for entry in lacking["hooks"]:
                    if (entry["class"], entry["method"]) == (name, selector):
                        self.assertIn(entry["verdict"], ("missing", "inherited"))
        for name in sorted({name for name, _ in methods} | {step["class"] for step in steps}):
            lacking = self.agree(host, [f"without class {name}"])
            verdicts = {entry["verdict"] for entry in lacking["hooks"] if entry["class"] == name}
            self.assertLessEqual(verdicts, {"missing"})
        return whole

    def test_douyin(self):
        self.every_change("douyin")
        self.agree("douyin", ["without method HTSLiveCommentStore sendCommentWithCommentContext:completion:",
                              "without method HTSLiveCommentFragment sendComment:commentContext:completion:"])
        self.agree("douyin", ["without method HTSLiveCommentStore setup",
                              "without method HTSLiveCommentFragment componentMount"])
        self.agree("douyin", ["without class IESLiveCommentContext", "without method HTSLiveCommentStore context"])
        # A store that takes something else in the context's place leaves the fragment nothing to send.
        found = self.agree("douyin", ["types HTSLiveCommentStore sendCommentWithCommentContext:completion: v@:q@?"])
        self.assertTrue(found["paths"][0]["loses"])
        # One of two names for the text is enough; without either the store gets a comment that has none.
        keys = [f"without method IESLiveCommentContext {setter}" for setter in ("setContent:", "setPlainText:")]
        for key in keys:
            self.assertTrue(self.agree("douyin", [key])["works"])
        self.assertFalse(self.agree("douyin", keys)["works"])

    def test_xhs(self):
        self.every_change("xhs")
        first = "without method XYLivePlayDecorateView sendFasterChatMsg:"
        self.agree("xhs", [first, "without method XYCommentBar sendButtonTapped:"])
        self.agree("xhs", [first, "without method XYCommentBar setText:"])
        bar = "without method XYCommentBar sendButtonTapped:"
        self.agree("xhs", [first, bar, "without class XYLiveIMMessage"])
        self.agree("xhs", [first, bar, "without method XYLiveIMMessage initWithType:groupID:priority:dict:"])
        self.agree("xhs", ["without method XYLivePlayDecorateView didMoveToSuperview",
                           "without method XYCommentBar attachToViewController:hideWhenNotFirstResponder:"])

    def test_kuaishou(self):
        self.every_change("kuaishou")
        bar = "without method KSSLiveCommentBarService"
        self.agree("kuaishou", [f"{bar} comment:", "without method KSLiveCommentService comment:completion:"])
        self.agree("kuaishou", ["with method KSSLiveCommentBarService onCreate", f"{bar} bindTarget:"])
        self.agree("kuaishou", ["without class KSSLiveCommentBarService", "without class KSLiveCommentService"])
        self.agree("kuaishou", ["without class KSSLiveCommentBarService", "without class KSLiveCommentService",
                                "without method KSLivePreviewSendCommentComponent componentDidLoad"])

    def test_wechat(self):
        self.every_change("wechat")

    def test_options(self):
        """What the latency options force: the getters that the app has, where they are defined, if they give what is forced."""
        name = "TVLPlayerItemPreferences"
        for plan in ([], [f"with method {name} isLowLatencyFLV"], [f"without class {name}"],
                     [f"without method {name} startPlayBufferWaitTime", f"types {name} isSVCEnabled q@:"],
                     [f"inherits {name} LSSSuggestQuic", "types VeLivePlayerConfiguration retryMaxCount I@:"],
                     ["without class VeLivePlayerConfiguration", f"types {name} finalUseFastOpenDuration d@:"]):
            classes, said = play_app("douyin", plan, ["wait 4", "print host replaced"], OPTIONS)
            options = self.host(self.made(classes), "douyin")["options"]
            self.assertEqual({option["key"] for option in options}, OPTIONS)
            getters = {f'{getter.get("from", getter["class"])} {getter["method"]}' for option in options
                       for getter in option["getters"] if getter["verdict"] in ("present", "inherited")}
            forced = {fact for fact in said["host replaced"] if fact.startswith(("TVL", "VeLive"))}
            self.assertEqual(getters, forced, plan)

    def test_inherited(self):
        """Whatever a base class has is found and used there."""
        for host in HOSTS:
            own = classes_of(host)
            whole = self.agree(host)
            wanted = {(entry["class"], entry.get("method") or f'set{entry["key"][0].upper()}{entry["key"][1:]}:')
                      for entry in whole["hooks"] + [step for path in whole["paths"] for step in path["steps"]]
                      if "method" in entry or "key" in entry}
            found = self.agree(host, sorted(f"inherits {name} {selector}" for name, selector in wanted
                                            if selector in own.methods[name]))
            for entry in found["hooks"] + [step for path in found["paths"] for step in path["steps"]]:
                if "method" in entry or "key" in entry:
                    self.assertEqual((entry["verdict"], entry.get("from")), ("inherited", own.supers[entry["class"]]), entry)
            self.assertTrue(all(path["works"] for path in found["paths"]))

    def test_other_types(self):
        for host, method, types, verdict in (
            ("kuaishou", "KSLiveCommentService comment:completion:", "v@:dq", "types"),
            ("kuaishou", "KSSLiveCommentBarService bindTarget:", "@@:{CGPoint=dd}", "types"),
            ("kuaishou", "KSSLiveCommentBarService bindTarget:", "q@:q", "present"),
            ("xhs", "XYLiveImEngine joinWithGroupId:callback:", "v@:q@?", "types"),
            ("xhs", "XYLivePlayDecorateView sendFasterChatMsg:", "d@:d", "types"),
            ("wechat", "MMLiveCommentView didMoveToWindow", "f@:", "types"),
            ("douyin", "HTSLiveCommentFragment componentMount", "{CGRect=dddd}@:", "types"),
        ):
            found = self.agree(host, [f"types {method} {types}"], sends=False)
            name, selector = method.split()
            hook = next(hook for hook in found["hooks"] if (hook["class"], hook["method"]) == (name, selector))
            self.assertEqual(hook["verdict"], verdict, method)
        for host in HOSTS:
            found = self.agree(host, [f'types {hook["class"]} {hook["method"]} d@:{"d" * hook["method"].count(":")}'
                                      for hook in self.host(self.made(classes_of(host)), host)["hooks"]], sends=False)
            self.assertEqual({hook["verdict"] for hook in found["hooks"]}, {"types"})

    def test_layouts(self):
        for host in HOSTS:
            classes = classes_of(host)
            plain = None
            for layout, arguments in LAYOUTS.items():
                for categories in ((), classes.supers):
                    path = self.made(classes, layout.replace(", ", "-"), arguments, categories=categories)
                    found = self.host(path, host)
                    plain = plain or found
                    self.assertEqual(found, plain, layout)
            self.assertTrue(plain["works"])


if __name__ == "__main__":
    unittest.main()
