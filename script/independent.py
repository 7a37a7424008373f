"""Which neighbours may stand in either order, so that script/mutate does not try it.

Of a statement it is known what it writes and what it reads when it
  - sets a property that its object only remembers until it is laid out or drawn, or that only keeps an object (REMEMBERED),
  - assigns a variable, or puts something into a dictionary or a table under a key of its own,
  - is one of FORMS: sets or saves what the context draws with, adds to an outline, marks or adds a view, defines a class, releases,
and when all that it is given is made of names, numbers, class messages, questions without arguments and what MAKERS make. Two
of these may change places when neither writes what the other writes or reads. Two names are taken for two objects; what asks for
a property reads it of every object, and all views that are added count as one. Of every other statement the order is tried: of
one that calls what was replaced, posts, stores, shows, starts an animation, takes a block, or of which nothing is known. The
members of a class that is being defined have names of their own and may stand in any order."""
import re

MEMBERS = re.compile(r"^\s*(?:\w+::)*(?:method|\w*[pP]roperty|category|adopts)<")

REMEMBERED = set("""
    alpha opaque clipsToBounds contentMode userInteractionEnabled numberOfLines textAlignment font text placeholder
    clearButtonMode keyboardType returnKeyType enablesReturnKeyAutomatically shadowOpacity shadowRadius shadowOffset
    shouldRasterize lineWidth showsHorizontalScrollIndicator scrollEnabled pagingEnabled continuous direction
    numberOfTouchesRequired detailsLabelFont labelFont contentView pickerLabel pickerView scrollView pageControl toggleButton
    addButton frame bounds center transform autoresizingMask autoresizesSubviews minimumValue maximumValue value numberOfPages
    currentPage delegate keyboardAppearance rasterizationScale showsSelectionIndicator cornerRadius type enabled pan
    buttonStyle color setTranslation_inView setTitle_forState setTitleColor_forState setTitleShadowColor_forState addTarget_action_forControlEvents
    """.split())
# Those that are not a matter of their own.
WRITES = {"frame": {"bounds", "center"}} | dict.fromkeys(("minimumValue", "maximumValue", "value"), {"value"})
WRITES |= dict.fromkeys(("numberOfPages", "currentPage"), {"currentPage"})
READS = dict.fromkeys(("frame", "bounds"), {"transform", "autoresizesSubviews", "autoresizingMask"})

SET = re.compile(r"^([\w.\->()]+?)(?:\.|->)(\w+)\.set\((.*)\);$")
# What is sent for a state or for events is a matter of its own for each.
SENT = re.compile(r"^([\w.\->()]+?)(?:\.|->)((?:set|add)\w+_(?:for|in)\w+)\((.*?(\w+))\);$")
# Under the key that is the last of what is given, or the first.
UNDER = [re.compile(r"^\w+(?:\.|->)setObject_forKey\((?P<value>.*), (?P<key>keys::\w+|\"[^\"]*\"_ns)\);$"),
         re.compile(r"^(?:boolean|integer|real|put)\((?P<key>keys::\w+), (?P<value>.*)\);$"),
         re.compile(r"^\w+\.registerForMessageName_target_selector\((?P<key>\"[^\"]*\"_ns), (?P<value>.*)\);$"),
         re.compile(r"^set(?P<key>Swipe|Tap)Gesture\((?P<value>.*)\);$")]
ASSIGNED = re.compile(r"^([\w.\[\]]+) ([-+*/]?)= (.+);$")
PAINT = {"fill", "stroke", "width", "shadow", "clip"}
# What is written, None being the very thing that is given, and what is read besides.
FORMS = [(re.compile(form), writes, reads) for form, writes, reads in [
    (r"^(.*)\.setFill\(\);$", {"fill"}, set()), (r"^(.*)\.setStroke\(\);$", {"stroke"}, set()),
    (r"^CGContextSetFillColorWithColor\((.*)\);$", {"fill"}, set()),
    (r"^CGContextSetStrokeColorWithColor\((.*)\);$", {"stroke"}, set()),
    (r"^CGContextSetLineWidth\((.*)\);$", {"width"}, set()),
    (r"^CGContextSetShadowWithColor\((.*)\);$", {"shadow"}, set()),
    (r"^CGContextAddPath\((.*)\);$", {"path of the context"}, set()),
    (r"^(color)\.set\(\);$", {"fill", "stroke"}, set()),
    (r"^CGContextSaveGState\((.*)\);$", PAINT, set()),
    (r"^(.*)\.addClip\(\);$", {"clip"}, set()),
    (r"^(\w+)\.fill\(\);$", set(), {"fill", "shadow", "clip"}),
    (r"^addArc\((.*)\);$", {"path of the outline"}, set()),
    (r"^CG\w+Release\((\w+)\);$", None, set()),
    (r"^beTransparent\((\w+)\);$", {"opaque", "backgroundColor"}, set()),
    (r"^(\w+)\.setNeedsDisplay\(\);$", {"marked for drawing"}, set()),
    (r"^(\w+)\.setNeedsLayout\(\);$", {"marked for layout"}, set()),
    (r"^((?:define|add)[A-Z]\w+)\(\);$", set(), set()),  # classes, of which none is another's parent
    (r"^(useFactors)\(grid::portraitFactors\(screenWidth, screenHeight\)\);$", {"iPadAdjustFactorW", "iPadAdjustFactorH"},
     {"screenWidth", "screenHeight"}),
    (r"^(\w+)\.addGestureRecognizer\(\w+\);$", {"recognizers"}, set()),
    (r"^NSDelayedPerforming::cancelPreviousPerformRequestsWithTarget\((\w+)\);$", {"requests"}, set()),
    (r"^([\w.()\->]+)\.setInputAccessoryView\(\w+\);$", {"accessory"}, set()),
    (r"^presets::makeFolder(\(\));$", {"disk"}, set()),
    (r"^(\w+)->setTextAttributesForStyle\(\w+\);$", {"text attributes"}, set()),
    (r"^row\.keep\((.*)\);$", {"kept"}, set()),
    (r"^stop\(([\w.]+)\);$", None, set()),
    (r"^([\w.()\->]+?)(?:\.|->)addSubview\([\w.\->()]+\);$", {"views"}, set())]]
MAKERS = "|".join("""
    awesomeFont centerBelow iconString middleOf pill radiusOf retained rgbColor rounded smallerSideOf spacingOf storedValue
    swipeGesture tapGesture textOf CGAffineTransformMakeRotation""".split())
# Calls that only make or tell something.
PLAIN = re.compile(rf"\b(?:[A-Z]\w+::\w+|(?:bridge::)?selector(?:Of)?<[^>]*>|std::(?:max|min)|static_cast<\w+>|{MAKERS})\(|"
                   r"settings\(\)\.number\(|Values\(|\.(?:number|count|colorWithAlphaComponent)\(|(?<=[\w)])(?:\.|->)\w+\(\)|\bsettings\(\)")


def effects(text):
    """What a statement writes and what it reads, each a set of names; None when that is not known."""
    for shape, writes, reads in FORMS:
        found = shape.match(text)
        if found:
            return given({found.group(1)} if writes is None else writes, reads, found.group(1))
    for shape in UNDER:
        found = shape.match(text)
        if found:
            return given({found["key"]}, set(), found["value"])
    found = SET.match(text) or SENT.match(text)
    if found:
        of, name, value, *last = found.groups()
        # A picker asks its delegate at once.
        if name not in REMEMBERED and not name.endswith("Color") or (name == "delegate" and "picker" in of):
            return None
        ending = ".".join(["", re.sub(r"[^A-Za-z_]+", "_", of), *last])
        writes, reads = WRITES.get(name, {name}), READS.get(name, set())
        return given({each + ending for each in writes}, {each + ending for each in reads}, f"{of} {value}")
    found = ASSIGNED.match(text)
    if found:
        to, operation, value = found.groups()
        return given({to}, {to} if operation else set(), value)
    return None


def given(writes, reads, value):
    """With what the value reads; None when it calls what may do more."""
    plain = re.sub(r'"[^"]*"', '""', value)
    if re.search(r"[\w>\])]\(|\+\+|--|[^=!<>]=[^=]", PLAIN.sub(" ", plain)):
        return None
    told = set(re.findall(r"(?:\.|->)(\w+)\(\)", plain)) | set(re.findall(r"[A-Za-z_][\w.\[\]]*", plain))
    return writes, reads | told


def meet(some, others):
    """Whether one of these is one of those, or has it as a part."""
    return any(one == other or one.startswith((other + ".", other + "[")) or other.startswith((one + ".", one + "["))
               for one in some for other in others)


def independent(text, other):
    if text == other:
        return True
    one, two = effects(text), effects(other)
    return bool(one and two) and not (meet(one[0], two[0] | two[1]) or meet(two[0], one[1]))


def are_members(line, other):
    return bool(MEMBERS.match(line) and MEMBERS.match(other))
