# SPDX-License-Identifier: Apache-2.0
"""What the voices say."""

import functools
import os
import re

# How each language spells the two wake words, so that its voices pronounce them as its speakers do.
ENGLISH = {
    "hey quorbit": ["hey quorbit", "hey quorbit!", "hey, quorbit", "hey kworbit", "hey quorebit", "hey quor bit",
                    "hay quorbit"],
    "hey vexal": ["hey vexal", "hey vexal!", "hey, vexal", "hey vexall", "hey vexle", "hey vecksal", "hay vexal"],
}
SPELLINGS = {
    "de": {"hey quorbit": ["hej quorbit", "hey quorbit", "hee kworbit"],
           "hey vexal": ["hej wexal", "hey wexel", "hej fexal"]},
    "fr": {"hey quorbit": ["hé couorbite", "é couorbite", "hé corbite", "ey kworbitte"],
           "hey vexal": ["hé vexale", "é vexal", "hé vexol"]},
    "it": {"hey quorbit": ["ehi quorbit", "ei cuorbit", "ei quorbitt"],
           "hey vexal": ["ehi vecsal", "ei vexal", "ei vecsol"]},
    "ko": {"hey quorbit": ["헤이 쿼빗", "헤이 쿼르빗", "헤이 쿼비트"],
           "hey vexal": ["헤이 벡살", "헤이 벡셀", "헤이 벡설"]},
    "es": {"hey quorbit": ["jei cuorbit", "ey cuorbit"], "hey vexal": ["jei vecsal", "ey vexal"]},
    "nl": {"hey quorbit": ["hee kworbit", "hé kworbit"], "hey vexal": ["hee veksel", "hé veksal"]},
    "pt": {"hey quorbit": ["rei cuórbit", "ei quórbit"], "hey vexal": ["rei véquissal", "ei vécsal"]},
    "pl": {"hey quorbit": ["hej kworbit", "hej kłorbit"], "hey vexal": ["hej weksal", "hej weksel"]},
    "sv": {"hey quorbit": ["hej kvorbit", "hej quorbit"], "hey vexal": ["hej vexal", "hej veksel"]},
    "cs": {"hey quorbit": ["hej kvorbit", "hej kuorbit"], "hey vexal": ["hej veksl", "hej veksal"]},
    "fi": {"hey quorbit": ["hei kuorbit", "hei kvorbit"], "hey vexal": ["hei veksal", "hei veksel"]},
    "ru": {"hey quorbit": ["хэй куорбит", "эй кворбит"], "hey vexal": ["хэй вэксал", "эй вексал"]},
    "ca": {"hey quorbit": ["ei cuorbit", "hei quorbit"], "hey vexal": ["ei vecsal", "hei vexal"]},
}


def spellings(language, word):
    return ENGLISH[word] if language.startswith("en") else SPELLINGS[language][word]


NEAR_MISSES = [
    "hey robert", "hey pixel", "quite a bit", "hey corbin", "hey orbit", "the orbit", "hey court", "a quarter bit",
    "hey quarter", "quarterback", "hey forbid", "forbid it", "hey morbid", "hey rabbit", "hey gorbachev", "hey cupid",
    "hey hobbit", "hey quirky", "hey quote it", "hey corporate", "acrobat", "hey norbert", "they caught it",
    "okay corbett", "hey qualify", "say what a bit", "hey quick bite", "hey warm it", "hey quorum", "quorum bit",
    "hey order it", "okay order it", "they ordered it", "hey core", "hey what", "hey wait for it", "lay for a bit",
    "stay for a bit", "wait for a bit", "may forfeit", "in orbit", "play orbit", "they abort it", "report it",
    "they support it", "i bought it", "hey four bits", "heavy corbels", "hey qua", "quad bit", "quart of it",
    "hey vessel", "hey axle", "hey excel", "hey vector", "hey vixen", "hey vex", "hey pencil", "hey mexico",
    "hey texel", "hey lexel", "hey max", "hey rachel", "hey michelle", "hey special", "hey vegetable", "hey petal",
    "a vexing question", "vexed all", "hey bexley", "they wrecks all", "check all", "hey sexual", "hey texas",
    "hey decks all", "next all", "a vestal", "the vessel", "hey victor", "hey velvet", "hey wexford", "hey fixed all",
    "hey flexible", "they excel", "hey rental", "hey bagel", "hey axel", "hey alexa", "hey google", "hey siri",
    "hey dexter", "hey vikram", "hey festival", "hey vets all", "hey beck sell", "hey back soon", "hey", "hey hey",
    "hello", "hey there", "hey you", "hey look at this", "hey what is this", "hey come here", "hey mom", "hey dad",
    "hey can you hear me", "okay", "may i", "say it", "hey kettle", "hey carrot", "hey chef", "hey cook it",
    "hey quorn", "hey squirrel", "hey squash it", "hey quartz", "hey choir", "hey coral", "hey court it",
]

KITCHEN = [
    "set a timer for ten minutes", "open the recipes", "play some music", "turn the volume down", "stop", "cancel",
    "what time is it", "add butter to my shopping list", "how long do eggs need", "preheat the oven to two hundred",
    "search for potato salad", "go back", "next step", "start the dishwasher", "show me pasta dishes", "good morning",
    "please pass the salt", "dinner is ready in five minutes", "did you wash your hands", "the water is boiling",
    "where is the big spoon", "we need more milk and bread", "it smells wonderful in here", "could you close the window",
    "take the cake out of the oven", "who left the fridge open", "i will be home at seven", "cut the onions first",
    "the children are doing their homework", "let us watch a movie tonight", "the quick brown fox jumps over the dog",
    "there is a question about the order", "quietly stir the sauce for a bit", "the quality of the quinoa is great",
    "taxes are due in april", "the next exam is on friday", "my neighbor has a new car", "call me when you arrive",
    "good day", "good evening", "good night", "good job", "good for you", "what is for dinner", "where are you going",
    "wake up", "could you help me", "call grandma", "come on", "calm down", "wash it", "watch it", "what is up",
    "open music", "pause", "louder", "what is the weather like", "remind me to buy eggs", "read the recipe",
]

FORTUNES = {"en": ["literature", "riddles", "fortunes"], "de": ["de/zitate", "de/witze", "de/kinderzitate"],
            "it": ["italia", "formiche"], "es": ["es/sabiduria.fortunes", "es/varios.fortunes"]}


@functools.lru_cache(maxsize=None)
def quotations(language):
    """Short texts of Debian's fortune packages, or the kitchen sentences."""
    found = []
    for name in FORTUNES.get(language, []):
        path = os.path.join("/usr/share/games/fortunes", name)
        if os.path.isfile(path):
            with open(path, encoding="utf-8", errors="ignore") as file:
                found += [" ".join(re.sub(r"[^\w\s.,?!']", " ", text).split()) for text in file.read().split("\n%\n")]
    return [text for text in found if 20 < len(text) < 300] or KITCHEN
