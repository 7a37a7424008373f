"""Which neighbours may stand in either order, so that script/mutate does not try it.

The members of a class that is being defined may, and the entries of a map that go by a linker name: they have names of their own.
So may two statements that only have something remembered until something is laid out or drawn, neither of them by a name that
stands in the other. Such a statement sets one of PROPERTIES, sends or calls one of CALLS, defines a class, puts something under a
key, or assigns a variable; it goes by what it sets, by its CALLS name, by the key, by the variable. What it gives may ask without
arguments, tell a class to make something, and call MAKERS. Of every other statement the order is tried: of one that calls what was
replaced, posts, stores, shows, starts an animation, takes a block, or of which nothing is known."""
import re

ENTRY = r'\{" +", (?:import|pointer|constantStringClass|reinterpret_cast<void\*>|&)'
MEMBERS = re.compile(rf"^\s*(?:(?:\w+::)*(?:method|\w*[pP]roperty|category|adopts)<|{ENTRY})")


def names(text):
    """{name: what goes by it}, where "one=other" has one go by the other."""
    return {one: other or one for one, _, other in (word.partition("=") for word in text.split())}


# All those whose names end with Color too.
PROPERTIES = names("""
    alpha opaque clipsToBounds contentMode userInteractionEnabled numberOfLines textAlignment font text placeholder clearButtonMode
    keyboardType returnKeyType enablesReturnKeyAutomatically keyboardAppearance shadowOpacity shadowRadius shadowOffset cornerRadius
    shouldRasterize rasterizationScale lineWidth showsHorizontalScrollIndicator scrollEnabled pagingEnabled continuous direction
    numberOfTouchesRequired detailsLabelFont labelFont contentView pickerLabel scrollView pageControl toggleButton addButton
    autoresizingMask showsSelectionIndicator type enabled pan buttonStyle color delegate=frame bounds=frame center=frame frame
    transform=frame value minimumValue=value maximumValue=value currentPage numberOfPages=currentPage""")
CALLS = names("""
    setTranslation_inView setTitle_forState setTitleColor_forState setTitleShadowColor_forState setInputAccessoryView keep
    setTextAttributesForStyle setSwipeGesture setTapGesture addSubview addGestureRecognizer setNeedsDisplay setNeedsLayout
    beTransparent fill setFill=fill CGContextSetFillColorWithColor=fill setStroke CGContextSetStrokeColorWithColor
    CGContextSetLineWidth CGContextSetShadowWithColor CGContextAddPath addClip addArc CGGradientRelease
    CGColorSpaceRelease CGFontRelease CGDataProviderRelease cancelPreviousPerformRequestsWithTarget stop useFactors""")
KEYED = names("add emplace setObject_forKey boolean integer real put registerForMessageName_target_selector addTarget_action_forControlEvents")
MAKERS = names("""
    awesomeFont centerBelow iconString pill portraitFactors radiusOf retained rgbColor rounded smallerSideOf spacingOf storedValue
    swipeGesture tapGesture textOf colorWithAlphaComponent number count Values selector selectorOf static_cast reinterpret_cast max min
    CGAffineTransformMakeRotation""")

OF = r"^(?:\w+(?:\(\w*\))?(?:\.|->|::))*"
SET = re.compile(OF + r"(\w+)\.set\((.*)\);$")
CALL = re.compile(OF + r"(\w+)\((.*)\);$")
ASSIGNED = re.compile(r"^[\w.\[]*?(\w+)\]? [-+*/]?= (.+);$")
DEFINES = re.compile(r"^(?:define|add)[A-Z]\w+$")
KEY = re.compile(r"keys::(\w+)|\"([^\"]+)\"|\b(UIControlEvent\w+)")
ASKED = re.compile(r"([\w:]+)(?:<[^()]*>)?\((?!\))")


def name_of(text):
    """What the statement goes by; None when it may do more than have something remembered."""
    assigned = ASSIGNED.match(text)
    found = assigned or SET.match(text) or CALL.match(text)
    if not found or re.search(r"\+\+|--|\[[^\]]*\] ?[({]", found.group(2)):
        return None
    name, given = found.groups()
    asked = [re.sub(r"^.*::", "", each) for each in ASKED.findall(given) if not re.match(r"[A-Z]\w+::", each)]
    if not all(each in MAKERS for each in asked):
        return None
    if assigned:
        return name
    if found.re is SET:
        return PROPERTIES.get(name) or (name if name.endswith("Color") else None)
    if name in KEYED:
        key = KEY.search(given)
        return key and next(filter(None, key.groups()))
    return name if DEFINES.match(name) and not given else CALLS.get(name)


def words(text):
    """Its names, with what these go by."""
    found = set(re.findall(r"\w+", text))
    return found | {table[each] for table in (PROPERTIES, CALLS) for each in found & table.keys()}


def independent(text, other):
    if text == other:
        return True
    one, two = name_of(text), name_of(other)
    return bool(one and two) and one not in words(other) and two not in words(text)


def are_members(line, other):
    return bool(MEMBERS.match(line) and MEMBERS.match(other))
