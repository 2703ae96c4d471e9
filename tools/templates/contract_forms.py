# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""The texts of the contract forms. {Name} is a merge field; the program fills the same names in every form.

What is not entered is left out with its words, unless somebody is meant to write it by hand: then there is a line for it.
"""

from docx_writer import Article, Cell, Form, Grid, Signatures, Table, Text, optional

# Numbers, dates and codes: they run left to right inside a Persian line. A plate brings its own order.
LEFT_TO_RIGHT = frozenset(
    """
    PC IdentityCode NC dateBirth Tel EC IdentityCode2 N dateBirth2 Tel2 E p dateContract Amount
    Commission1 sumTax1 Pay1 DiscountFirst sumTax2 Pay2 DiscountSecond iCode Model NumOfWheels NumOfEngines ChassisNum
    AgreeAmount CheckNum BranchCode RemainingAmount dateTradeUnit DamageAmount dateDeal timeDeal DelayAmount
    timeTradeUnit Num Tracking
    VIN DealershipTel DealershipMobile AmountRent dateRent dateRentExpire dateDocument dateOffice dateExpiration
    PlanNum PlanDate PlanAmount PlanTotal PlanCount PlanFirstDate PlanLastDate
    """.split()
)

# Codes of Latin letters and digits, whose digits look as on the car's papers.
CODES = frozenset({"NumOfEngines", "ChassisNum", "VIN"})

HEADING = [
    "{Dealership}",
    optional("مشاور خودرو شماره: {NoAdvice}    ", "NoAdvice") + optional("حوزه ثبتی: {DomainRegister}", "DomainRegister"),
    optional("نشانی: {DealershipAddress}", "DealershipAddress")
    + optional(optional("نشانی: {AddressSample}", "AddressSample"), unless="DealershipAddress"),
    optional("تلفن: {DealershipTel}", "DealershipTel")
    + optional("    همراه: {DealershipMobile}", "DealershipMobile"),
]
# The tracking code is issued once the contract is signed, so there is a line to write it on.
REFERENCE = [
    "شماره قرارداد: {iCode}",
    "تاریخ: {dateContract}",
    "کد رهگیری: " + optional("{Tracking}", "Tracking") + optional("..................", unless="Tracking"),
]
FOOTER = "این قرارداد بدون مهر نمایشگاه و امضای طرفین اعتبار ندارد"

FIRST_NAME = "{Mr} {Name} {Family}"
SECOND_NAME = "{MrPerson2} {NamePerson2} {Family2}"


def first_party(role):
    return Grid(
        4,
        [
            [
                Cell("نام و نام خانوادگی", FIRST_NAME, 2, always=True),
                Cell("نام پدر", "{Father}"),
                Cell("تاریخ تولد", "{dateBirth}"),
            ],
            [
                Cell("شماره شناسنامه", "{IdentityCode}"),
                Cell("محل صدور", "{IdentityCodeCity}"),
                Cell("محل تولد", "{BirthCity}"),
                Cell("کد ملی", "{NC}"),
            ],
            [Cell("نشانی", "{Address}", 3), Cell("کد پستی", "{PC}")],
            [
                Cell("تلفن", "{Tel}"),
                Cell("کد اقتصادی", "{EC}"),
                Cell("از طرف", "{FromFirst}"),
                Cell("به موجب", "{ByVirtueFirst}"),
            ],
        ],
        role,
    )


def second_party(role):
    return Grid(
        4,
        [
            [
                Cell("نام و نام خانوادگی", SECOND_NAME, 2, always=True),
                Cell("نام پدر", "{FatherName2}"),
                Cell("تاریخ تولد", "{dateBirth2}"),
            ],
            [
                Cell("شماره شناسنامه", "{IdentityCode2}"),
                Cell("محل صدور", "{IdentityCodeCity2}"),
                Cell("محل تولد", "{BirthCity2}"),
                Cell("کد ملی", "{N}"),
            ],
            [Cell("نشانی", "{Address2}", 3), Cell("کد پستی", "{p}")],
            [
                Cell("تلفن", "{Tel2}"),
                Cell("کد اقتصادی", "{E}"),
                Cell("از طرف", "{FromSecond}"),
                Cell("به موجب", "{ByVirtueSecond}"),
            ],
        ],
        role,
    )


def vehicle():
    return Grid(
        4,
        [
            [
                Cell("نام خودرو", "{AutomobilName}"),
                Cell("سیستم", "{System}"),
                Cell("تیپ", "{Brigade}"),
                Cell("مدل", "{Model}"),
            ],
            [Cell("رنگ", "{Color}"), Cell("نوع", "{AutomobilType}"), Cell("سوخت", "{Fuel}"), Cell("ظرفیت", "{Capacity}")],
            [
                Cell("شماره پلاک", "{Plate}", 2, when="NumOfPlates"),
                Cell("تعداد محور", "{NumOFAxles}"),
                Cell("تعداد چرخ", "{NumOfWheels}"),
            ],
            [Cell("شماره موتور", "{NumOfEngines}", 2), Cell("شماره شاسی", "{ChassisNum}", 2)],
            [Cell("VIN", "{VIN}", 2), Cell("دانگ", "{Dengue}", 2)],
            [Cell("لوازم تحویلی", "{DocumentsDelivered}", 2), Cell("توضیحات", "{DescMatter}", 2)],
        ],
    )


def amount(label, name, span):
    """An amount, and the same in words."""
    return Cell(label, f"{{{name}}} {{MoneyUnit}} ({{{name}Words}})", span, when=name)


CHEQUES = [
    [amount("جمع مبلغ چک‌ها", "AgreeAmount", 2), Cell("تعداد چک", "{CheckCount}"), Cell("شماره چک", "{CheckNum}")],
    [Cell("بانک", "{BankName}"), Cell("شعبه", "{BranchName}"), Cell("کد شعبه", "{BranchCode}", 2)],
]
REST = [
    [amount("باقی‌مانده", "RemainingAmount", 4)],
    [Cell("شرح باقی‌مانده", "{DescRemainingAmount}", 2), Cell("شرح چک / سفته", "{DescCheck}", 2)],
]
CHEQUE_FIELDS = "AgreeAmount CheckCount CheckNum"


def payment(total, further):
    return Grid(4, [[amount(total, "Amount", 4)], *further])


def appointment(date, further=()):
    return Grid(
        4,
        [
            [
                Cell(date, "{dateDeal}"),
                Cell("ساعت", "{timeDeal}"),
                Cell("دفتر اسناد رسمی شماره", "{RegistryNum}"),
                Cell("حق تحریر", "{RightTahrir}"),
            ],
            *further,
        ],
    )


def plan_table(*columns, when="PlanCount", unless=""):
    """One row that comes once for each instalment; a column is its title, its field and its part of the width."""
    titles, names, widths = zip(*columns, strict=True)
    return Table(list(widths), list(titles), [[f"{{{name}}}" for name in names]], when, unless)


DEED_DATES = [Cell("تنظیم سند طبق قرارداد", "{dateDocument}", 2), Cell("تنظیم سند در دفتر اسناد رسمی", "{dateOffice}", 2)]


def commission(first, second):
    def rows(party, tax, discount, pays):
        return [
            [
                Cell("", party, 2, when=pays),
                Cell("حق کمیسیون", "{Commission1}", 4),
                Cell("مالیات و عوارض", f"{{{tax}}}", 4),
                Cell("تخفیف", f"{{{discount}}}", 3),
            ],
            [amount(f"قابل پرداخت {party}", pays, 13)],
        ]

    return Grid(13, rows(first, "sumTax1", "DiscountFirst", "Pay1") + rows(second, "sumTax2", "DiscountSecond", "Pay2"))


COMMISSION_FIELDS = "Commission1 sumTax1 sumTax2"


def commission_texts():
    return [
        Text(
            "حق کمیسیون نمایشگاه بابت انجام این معامله، همراه با مالیات بر ارزش افزوده و عوارض آن، به شرح زیر بر عهده "
            "هر یک از طرفین است و هم‌زمان با امضای قرارداد پرداخت می‌شود. فسخ یا اقاله قرارداد موجب استرداد آن نیست.",
            when=COMMISSION_FIELDS,
        ),
        Text("نمایشگاه بابت انجام این معامله حق کمیسیونی دریافت نمی‌کند.", unless=COMMISSION_FIELDS),
    ]


def own_conditions(first, second):
    """What the contract itself says: the commitments and notes of its first page."""
    return [
        Text(f"تعهدات {first}: {{CommitmentFirst}}", "•", "CommitmentFirst"),
        Text(f"تعهدات {second}: {{CommitmentSecond}}", "•", "CommitmentSecond"),
        *(Text(f"تبصره: {{Note{number}}}", "•", f"Note{number}") for number in range(1, 11)),
    ]


def registration():
    return Grid(
        6,
        [
            [
                Cell("تنظیم در واحد صنفی", "{dateTradeUnit}", 2),
                Cell("ساعت", "{timeTradeUnit}"),
                Cell("ثبت در صفحه", "{Page}"),
                Cell("جلد", "{Cover}"),
                Cell("شماره", "{Num}"),
            ],
            [Cell("توضیحات", "{sDesc}", 6)],
        ],
    )


def closing(articles=""):
    made_of = f"در {articles} ماده و " if articles else "در "
    return Text(
        f"این قرارداد {made_of}سه نسخه با اعتبار یکسان تنظیم شد، به اطلاع طرفین رسید و پس از خواندن و قبول "
        "مفاد آن به امضای طرفین و شهود رسید؛ یک نسخه نزد هر طرف و یک نسخه در بایگانی نمایشگاه می‌ماند.",
        stays_with_next=True,
    )


def signatures(first, second):
    return Signatures(
        [
            (f"امضا و اثر انگشت {first}", FIRST_NAME),
            (f"امضا و اثر انگشت {second}", SECOND_NAME),
            ("امضای شهود", "۱- ..................    ۲- .................."),
            ("مهر و امضای نمایشگاه", "...................."),
        ]
    )


def form(title, blocks):
    return Form(title, HEADING, REFERENCE, blocks, FOOTER, LEFT_TO_RIGHT, CODES)


SALE = form(
    "مبایعه‌نامه خودرو",
    [
        Article("ماده ۱ - طرفین قرارداد"),
        first_party("فروشنده / طرف اول"),
        second_party("خریدار / طرف دوم"),
        Article("ماده ۲ - موضوع قرارداد"),
        Text(
            "موضوع قرارداد عبارت است از فروش و انتقال قطعی {If_Dengue}دانگ یادشده از {EndIf}خودرو زیر، با همه لوازم، متعلقات و مدارک آن، "
            "که به رؤیت و قبول خریدار رسیده است."
        ),
        vehicle(),
        Article("ماده ۳ - مبلغ قرارداد و شیوه پرداخت"),
        payment("مبلغ کل قرارداد", CHEQUES + REST),
        Text("پرداخت باقی‌مانده هم‌زمان با تنظیم سند رسمی و تحویل همه مدارک خودرو انجام می‌شود.", "•", "RemainingAmount"),
        Text(
            "اگر هر یک از چک‌ها در سررسید وصول نشود، فروشنده حق دارد قرارداد را با اعلام کتبی فسخ کند و خسارت ماده ۵ را "
            "از خریدار بگیرد.",
            "•",
            CHEQUE_FIELDS,
        ),
        Article("ماده ۴ - تحویل خودرو و تنظیم سند رسمی"),
        appointment("تاریخ معامله", [DEED_DATES]),
        Text(
            "طرفین متعهد شدند در {If_dateDeal}تاریخ{If_timeDeal} و ساعت{EndIf} بالا{EndIf}{IfNot_dateDeal}موعدی که با هم می‌گذارند{EndIf} "
            "با مدارک کامل در دفتر اسناد رسمی{If_RegistryNum} یادشده{EndIf} حاضر شوند. گواهی دفترخانه دلیل حضور یا غیبت هر طرف است.",
            "الف)",
        ),
        Text(
            "خودرو هنگام امضای این قرارداد با سند، کارت، بیمه‌نامه و کلیدهای آن به خریدار تحویل شد، مگر آن‌که در "
            "توضیحات خلاف آن نوشته شده باشد. هزینه تعویض پلاک و تنظیم سند بر عهده خریدار است.",
            "ب)",
        ),
        Article("ماده ۵ - خسارت"),
        Grid(1, [[amount("خسارت تخلف از قرارداد", "DamageAmount", 1)]]),
        Text(
            "هر طرف که از انجام معامله خودداری کند یا در موعد حاضر نشود، خسارت {If_DamageAmount}بالا{EndIf}"
            "{IfNot_DamageAmount}وارد{EndIf} را به طرف دیگر می‌پردازد. پرداخت خسارت جانشین انجام تعهد نیست."
        ),
        Article("ماده ۶ - تعهدات و شرایط"),
        Text(
            "فروشنده اقرار می‌کند که مالک قانونی خودرو است و خودرو در رهن، توقیف، بازداشت یا وثیقه کسی نیست و پیش از این "
            "به دیگری منتقل نشده است؛ در غیر این صورت پاسخ‌گوی همه خسارت‌های خریدار است.",
            "الف)",
        ),
        Text(
            "جریمه‌های رانندگی، عوارض، مالیات و مسئولیت مدنی و کیفری خودرو تا تاریخ و ساعت تحویل بر عهده فروشنده و پس از "
            "آن بر عهده خریدار است.",
            "ب)",
        ),
        Text(
            "اصالت شماره موتور، شماره شاسی، پلاک و مدارک خودرو بر عهده فروشنده است و هر ایراد قانونی در آن‌ها حق فسخ برای "
            "خریدار ایجاد می‌کند.",
            "پ)",
        ),
        Text(
            "خریدار وضعیت فنی و ظاهری خودرو را دیده و پذیرفته است. همه خیارات، حتی خیار غبن فاحش، به جز خیار تدلیس و شرط "
            "این قرارداد، از طرفین ساقط شد.",
            "ت)",
        ),
        Text(
            "نشانی طرفین در ماده ۱ نشانی قانونی آنان است. اختلاف طرفین نخست با داوری اتحادیه صنف و سپس در مراجع قضایی محل "
            "حل می‌شود.",
            "ث)",
        ),
        *own_conditions("فروشنده", "خریدار"),
        Article("ماده ۷ - حق کمیسیون نمایشگاه"),
        *commission_texts(),
        commission("فروشنده", "خریدار"),
        Article("ماده ۸ - ثبت و نسخه‌های قرارداد"),
        registration(),
        closing("هشت"),
        signatures("فروشنده", "خریدار"),
    ],
)

RENT = form(
    "قرارداد اجاره خودرو",
    [
        Article("ماده ۱ - طرفین قرارداد"),
        first_party("موجر / طرف اول"),
        second_party("مستأجر / طرف دوم"),
        Article("ماده ۲ - مورد اجاره"),
        Text(
            "مورد اجاره عبارت است از منافع {If_Dengue}دانگ یادشده از {EndIf}خودرو زیر، با همه لوازم و متعلقات آن، که سالم و آماده "
            "بهره‌برداری به رؤیت و قبول مستأجر رسیده است."
        ),
        vehicle(),
        Article("ماده ۳ - مدت اجاره و تحویل"),
        appointment("تاریخ تحویل", [DEED_DATES]),
        Text(
            "مدت اجاره {If_RentTime}{RentTime}{EndIf}{IfNot_RentTime}{If_NumOfMonths}{NumOfMonths} ماه{EndIf}"
            "{IfNot_NumOfMonths}................{EndIf}{EndIf} از {If_dateRent}{dateRent}{EndIf}{IfNot_dateRent}تاریخ تحویل{EndIf} "
            "تا پایان روز {If_dateRentExpire}{dateRentExpire}{EndIf}{IfNot_dateRentExpire}......../......../................{EndIf} "
            "است. تمدید آن تنها با توافق کتبی طرفین انجام می‌شود.",
            "الف)",
        ),
        Text(
            "مستأجر باید در پایان مدت یا هنگام فسخ، خودرو را با همه مدارک و لوازم، سالم و پاک در محل نمایشگاه یا محلی که "
            "موجر تعیین می‌کند، تحویل دهد.",
            "ب)",
        ),
        Article("ماده ۴ - مبلغ قرارداد و شیوه پرداخت"),
        payment("مبلغ کل قرارداد", [[amount("مبلغ مال‌الاجاره", "AmountRent", 4)], *CHEQUES, *REST]),
        Text(
            "اگر اجاره در سررسید پرداخت نشود یا چکی وصول نشود، موجر حق دارد قرارداد را با اعلام کتبی فسخ کند و خودرو را "
            "پس بگیرد."
        ),
        Article("ماده ۵ - خسارت"),
        Grid(1, [[amount("خسارت تخلف از قرارداد", "DamageAmount", 1)]]),
        Text("پرداخت خسارت، حق ادامه استفاده از خودرو را پس از پایان مدت ایجاد نمی‌کند و جانشین اجرت ایام تصرف نیست."),
        Article("ماده ۶ - تعهدات و شرایط"),
        Text(
            "موجر اقرار می‌کند که مالک منافع خودرو است یا اختیار قانونی اجاره دادن آن را دارد و بیمه شخص ثالث خودرو در "
            "مدت اجاره معتبر است.",
            "الف)",
        ),
        Text(
            "مستأجر حق واگذاری خودرو به دیگری، مسافرکشی، حمل بار غیرمجاز، یدک‌کشی، شرکت در مسابقه و خروج از کشور را "
            "ندارد و رانندگی تنها با گواهی‌نامه معتبر مجاز است.",
            "ب)",
        ),
        Text(
            "جریمه‌های رانندگی، عوارض آزادراه، هزینه سوخت و تعمیر ناشی از استفاده نادرست و نیز مسئولیت مدنی و کیفری خودرو "
            "در مدت اجاره بر عهده مستأجر است؛ تعمیرهای اساسی و استهلاک معمول بر عهده موجر است.",
            "پ)",
        ),
        Text(
            "در صورت تصادف، سرقت یا توقیف خودرو مستأجر باید بی‌درنگ به موجر و مراجع انتظامی خبر دهد و افت قیمت و خسارتی را "
            "که بیمه نمی‌پردازد، جبران کند.",
            "ت)",
        ),
        Text(
            "نشانی طرفین در ماده ۱ نشانی قانونی آنان است. اختلاف طرفین نخست با داوری اتحادیه صنف و سپس در مراجع قضایی محل "
            "حل می‌شود.",
            "ث)",
        ),
        *own_conditions("موجر", "مستأجر"),
        Article("ماده ۷ - حق کمیسیون نمایشگاه"),
        *commission_texts(),
        commission("موجر", "مستأجر"),
        Article("ماده ۸ - ثبت و نسخه‌های قرارداد"),
        registration(),
        closing("هشت"),
        signatures("موجر", "مستأجر"),
    ],
)

INSTALMENT = form(
    "قرارداد فروش اقساطی خودرو",
    [
        Article("ماده ۱ - طرفین قرارداد"),
        first_party("فروشنده / طرف اول"),
        second_party("خریدار / طرف دوم"),
        Article("ماده ۲ - موضوع قرارداد"),
        Text(
            "موضوع قرارداد عبارت است از فروش اقساطی {If_Dengue}دانگ یادشده از {EndIf}خودرو زیر، با همه لوازم، متعلقات و مدارک آن، که به رؤیت "
            "و قبول خریدار رسیده است."
        ),
        vehicle(),
        Article("ماده ۳ - مبلغ قرارداد و اقساط"),
        payment(
            "مبلغ کل قرارداد",
            [
                *CHEQUES,
                [
                    Cell("مدت معامله", "{RentTime}"),
                    Cell("از تاریخ", "{dateRent}"),
                    Cell("لغایت", "{dateRentExpire}"),
                    Cell("شماره‌های سررسید", "{UsanceNum}"),
                ],
            ],
        ),
        Text(
            "مانده به مبلغ {PlanTotal} {MoneyUnit} ({PlanTotalWords}) در {PlanCount} قسط، به شرح جدول زیر پرداخت می‌شود.",
            "الف)",
            when="PlanCount",
        ),
        Text(
            "مانده{If_NumOfInstallment} در {NumOfInstallment} قسط{EndIf}، به شرح جدول اقساط پیوست پرداخت می‌شود. جدول اقساط با "
            "امضای طرفین جزء این قرارداد است.",
            "الف)",
            unless="PlanCount",
        ),
        plan_table(("قسط", "PlanNum", 1), ("سررسید", "PlanDate", 3), ("مبلغ", "PlanAmount", 4), ("به حروف", "PlanWords", 8), unless="PlanCheque"),
        plan_table(
            ("قسط", "PlanNum", 1),
            ("سررسید", "PlanDate", 2),
            ("مبلغ", "PlanAmount", 3),
            ("به حروف", "PlanWords", 6),
            ("چک", "PlanCheque", 4),
            when="PlanCheque",
        ),
        Text(
            "پرداخت زودتر از سررسید مجاز است. دریافت قسط معوق یا مهلت دادن به خریدار، فروشنده را از حقوق این قرارداد "
            "محروم نمی‌کند.",
            "ب)",
        ),
        Article("ماده ۴ - تحویل خودرو و تنظیم سند رسمی"),
        appointment("تاریخ معامله"),
        Text(
            "خودرو هنگام امضای این قرارداد برای استفاده به خریدار تحویل شد. سند رسمی پس از پرداخت آخرین قسط در دفتر اسناد "
            "رسمی{If_RegistryNum} یادشده{EndIf} به نام خریدار تنظیم می‌شود و تا آن روز نزد فروشنده می‌ماند.",
            "الف)",
        ),
        Text(
            "خریدار تا تسویه کامل حق فروش، صلح، اجاره، رهن یا هرگونه انتقال خودرو به دیگری را ندارد. هزینه تعویض پلاک و "
            "تنظیم سند بر عهده خریدار است.",
            "ب)",
        ),
        Article("ماده ۵ - خسارت{If_DelayAmount} و دیرکرد{EndIf}"),
        Grid(
            2,
            [[amount("خسارت تخلف از قرارداد", "DamageAmount", 1), amount("دیرکرد هر روز تأخیر در پرداخت قسط", "DelayAmount", 1)]],
        ),
        Text(
            "اگر دو قسط پیاپی در سررسید پرداخت نشود، همه مانده حال می‌شود و فروشنده حق دارد آن را یک‌جا بخواهد یا قرارداد "
            "را فسخ کند و خودرو را پس بگیرد؛ در این صورت اجرت استفاده، استهلاک و خسارت از پرداخت‌های خریدار کم می‌شود."
        ),
        Article("ماده ۶ - تعهدات و شرایط"),
        Text(
            "فروشنده اقرار می‌کند که مالک قانونی خودرو است و خودرو در رهن، توقیف یا وثیقه کسی نیست و اصالت شماره موتور، "
            "شماره شاسی، پلاک و مدارک آن بر عهده اوست.",
            "الف)",
        ),
        Text(
            "جریمه‌های رانندگی، عوارض، مالیات و مسئولیت مدنی و کیفری خودرو تا تاریخ و ساعت تحویل بر عهده فروشنده و پس از "
            "آن بر عهده خریدار است.",
            "ب)",
        ),
        Text(
            "خریدار باید خودرو را تا تسویه کامل نزد شرکت بیمه معتبر، بیمه شخص ثالث و بدنه کند. تلف، سرقت یا آسیب خودرو "
            "تعهد پرداخت اقساط را از میان نمی‌برد.",
            "پ)",
        ),
        Text(
            "خریدار وضعیت فنی و ظاهری خودرو را دیده و پذیرفته است. همه خیارات، حتی خیار غبن فاحش، به جز خیار تدلیس و شرط "
            "این قرارداد، از طرفین ساقط شد.",
            "ت)",
        ),
        Text(
            "نشانی طرفین در ماده ۱ نشانی قانونی آنان است. اختلاف طرفین نخست با داوری اتحادیه صنف و سپس در مراجع قضایی محل "
            "حل می‌شود.",
            "ث)",
        ),
        *own_conditions("فروشنده", "خریدار"),
        Article("ماده ۷ - حق کمیسیون نمایشگاه"),
        *commission_texts(),
        commission("فروشنده", "خریدار"),
        Article("ماده ۸ - ثبت و نسخه‌های قرارداد"),
        registration(),
        closing("هشت"),
        signatures("فروشنده", "خریدار"),
    ],
)

LETTER = form(
    "قراردادنامه",
    [
        Article("طرفین قرارداد"),
        first_party("طرف اول"),
        second_party("طرف دوم"),
        Article("موضوع قرارداد"),
        Text("{Deal}", when="Deal"),
        Text("." * 150, unless="Deal"),
        Text("{Explain}", when="Explain"),
        Article("مبلغ قرارداد"),
        Grid(4, [[amount("مبلغ قرارداد", "Amount", 4)], [Cell("تاریخ قرارداد", "{dateContract}", 2), Cell("تاریخ انقضا", "{dateExpiration}", 2)]]),
        Article("تعهدات و شرایط"),
        *own_conditions("طرف اول", "طرف دوم"),
        Text(
            "هر طرف که از انجام تعهد خود در این قرارداد خودداری کند، خسارت وارد به طرف دیگر را می‌پردازد. پرداخت خسارت جانشین "
            "انجام تعهد نیست.",
            "•",
        ),
        Text(
            "نشانی طرفین در این قرارداد نشانی قانونی آنان است. اختلاف طرفین نخست با داوری اتحادیه صنف و سپس در مراجع قضایی محل "
            "حل می‌شود.",
            "•",
        ),
        Article("حق کمیسیون نمایشگاه", COMMISSION_FIELDS),
        commission_texts()[0],
        commission("طرف اول", "طرف دوم"),
        Article("ثبت و نسخه‌های قرارداد"),
        registration(),
        closing(),
        signatures("طرف اول", "طرف دوم"),
    ],
)

# By the file that the program looks for.
FORMS = {
    "AutoMbayh.docx": SALE,
    "AutoRent.docx": RENT,
    "AutoInstallment.docx": INSTALMENT,
    "AutoLetter.docx": LETTER,
}
