"""What the sample portfolio is made of. Persons, addresses, brokers and participants are invented;
the scrips and their codes are real, the prices are near those of the time."""

CLIENTS = (
    "ATH001,ATHALEKAR,RAGHAV MOHAN ATHALEKAR,\"12, CHAFEKAR NIWAS, LANE 9\",PUNE,MAHARASHTRA,411099,"
    "020,5550101,,,raghav@athalekar.example,12/08/1958,ZZRPA1101K,Male,Married",
    "ATH002,ATHALEKAR,SUNANDA RAGHAV ATHALEKAR,\"12, CHAFEKAR NIWAS, LANE 9\",PUNE,MAHARASHTRA,"
    "411099,020,5550101,,,sunanda@athalekar.example,03/02/1962,ZZSPA1102L,Female,Married",
    "ATH003,ATHALEKAR,NIKHIL RAGHAV ATHALEKAR,\"B-4, SAPTAPADI HEIGHTS\",NASHIK,MAHARASHTRA,422099,"
    "0253,5550103,,,nikhil@athalekar.example,29/02/1988,ZZNPA1103M,Male,Single",
    "ATH004,ATHALEKAR,MEERA RAGHAV ATHALEKAR,\"12, CHAFEKAR NIWAS, LANE 9\",PUNE,MAHARASHTRA,411099,"
    "020,5550101,,,meera@athalekar.example,17/11/1991,ZZMPA1104N,Female,Single",
)

NSDL, CDSL = "SANCHAYIKA DEPOSITORY SERVICES LTD", "VISHVASTA SECURITIES PVT LTD"
PARTICIPANTS = (
    f"{NSDL},NSDL,IN309991,\"GROUND FLOOR, RATNADEEP CHAMBERS\",MUMBAI,MAHARASHTRA,400099,022,"
    "5550110,,,help@sanchayika.example,HEMANT PRABHUDAS,MANAGER",
    f"{CDSL},CDSL,12099900,\"3, KAMALPUSHPA ARCADE, MAIN ROAD\",PUNE,MAHARASHTRA,411098,020,"
    "5550120,,,help@vishvasta.example,ANJALI DURGAVALE,BRANCH HEAD",
)

# short name -> (client, participant, DP id, account number, broker, exchange)
KALYANI, TARANGINI, VANRAJI = ("KALYANVRIKSHA SHARE BROKERS PVT LTD", "TARANGINI EQUITIES LTD",
                               "VANRAJI STOCK BROKING PVT LTD")
ACCOUNTS = {
    "R1": ("ATH001", NSDL, "IN309991", "10014501", KALYANI, "NSE"),
    "R2": ("ATH001", CDSL, "12099900", "1209990000010017", TARANGINI, "BSE"),
    "S1": ("ATH002", NSDL, "IN309991", "10014519", KALYANI, "NSE"),
    "N1": ("ATH003", NSDL, "IN309991", "10014527", VANRAJI, "NSE"),
    "N2": ("ATH003", CDSL, "12099900", "1209990000020028", TARANGINI, "BSE"),
    "M1": ("ATH004", CDSL, "12099900", "1209990000030031", VANRAJI, "NSE"),
}

BROKERS = (
    f"{KALYANI},\"201, SHRIPAL CHAMBERS\",MUMBAI,MAHARASHTRA,400098,022,5550130,,,"
    "desk@kalyanvriksha.example",
    f"{TARANGINI},\"7, GODATIRA BUILDING\",NASHIK,MAHARASHTRA,422098,0253,5550140,,,"
    "desk@tarangini.example",
    f"{VANRAJI},\"45, PARIJAT MARKET\",PUNE,MAHARASHTRA,411097,020,5550150,,,desk@vanraji.example",
)
BROKER_PREFIX = {KALYANI: "KV", TARANGINI: "TE", VANRAJI: "VS"}
BROKER_OPENING = (
    ("ATH001", KALYANI, "18450.5", "Dr"), ("ATH001", TARANGINI, "6212.75", "Cr"),
    ("ATH002", KALYANI, "3105", "Dr"), ("ATH003", VANRAJI, "950.25", "Cr"),
)
BANKS = {"ATH001": "PANCHDHARA SAHAKARI BANK", "ATH002": "PANCHDHARA SAHAKARI BANK",
         "ATH003": "BANK OF KAVERIPATTAN", "ATH004": "BANK OF KAVERIPATTAN"}

YEARS = ("2011-12", "2012-13", "2013-14")
PERCENTAGES = {
    # brokerage delivery, non delivery; STT delivery, non delivery; service tax
    "2010-11": ("0.5", "0.05", "0.125", "0.025", "10.3"),
    "2011-12": ("0.5", "0.05", "0.125", "0.025", "10.3"),
    "2012-13": ("0.45", "0.05", "0.1", "0.025", "12.36"),
    "2013-14": ("0.4", "0.04", "0.1", "0.025", "12.36"),
}
KINDS = ("Brokerage Delivery Based", "Brokerage Non Delivery Based", "STT Delivery Based",
         "STT Non Delivery Based", "Service Tax")

# Closing days that fall on a weekday.
HOLIDAYS = """
12/04/2011 14/04/2011 22/04/2011 15/08/2011 31/08/2011 01/09/2011 06/10/2011 26/10/2011 27/10/2011
07/11/2011 10/11/2011 06/12/2011 26/01/2012 20/02/2012 08/03/2012
05/04/2012 06/04/2012 01/05/2012 15/08/2012 20/08/2012 19/09/2012 02/10/2012 24/10/2012 26/10/2012
13/11/2012 14/11/2012 28/11/2012 25/12/2012 27/03/2013 29/03/2013
19/04/2013 24/04/2013 01/05/2013 09/08/2013 15/08/2013 09/09/2013 02/10/2013 16/10/2013 04/11/2013
15/11/2013 25/12/2013 27/02/2014 17/03/2014
""".split()

# Prices in whole rupees at the half years, from 01/04/2010 on, and at the end.
PRICE_DAYS = ("01/04/2010", "01/10/2010", "01/04/2011", "01/10/2011", "01/04/2012", "01/10/2012",
              "01/04/2013", "01/10/2013", "31/03/2014")
# code on BSE, symbol on NSE, name, prices
SCRIPS = (
    ("500410", "ACC", "ACC LTD", (955, 995, 1080, 1099, 1355, 1468, 1163, 1115, 1394)),
    ("500425", "AMBUJACEM", "AMBUJA CEMENTS LTD", (118, 140, 147, 149, 172, 202, 174, 184, 202)),
    ("532215", "AXISBANK", "AXIS BANK LTD",
     (1170, 1530, 1404, 1020, 1146, 1137, 1301, 1005, 1462)),
    ("532977", "BAJAJ-AUTO", "BAJAJ AUTO LTD",
     (1010, 1480, 1464, 1530, 1677, 1830, 1801, 1993, 2086)),
    ("532134", "BANKBARODA", "BANK OF BARODA", (640, 875, 965, 763, 794, 797, 676, 496, 719)),
    ("532454", "BHARTIARTL", "BHARTI AIRTEL LTD", (312, 366, 357, 378, 338, 265, 292, 318, 318)),
    ("500087", "CIPLA", "CIPLA LTD", (338, 320, 321, 283, 305, 381, 380, 434, 383)),
    ("533278", "COALINDIA", "COAL INDIA LTD", (300, 310, 347, 333, 343, 360, 309, 295, 289)),
    ("500830", "COLPAL", "COLGATE PALMOLIVE (INDIA) LTD",
     (680, 870, 815, 980, 1130, 1210, 1245, 1230, 1375)),
    ("500096", "DABUR", "DABUR INDIA LTD", (80, 104, 96, 102, 106, 129, 137, 171, 180)),
    ("532868", "DLF", "DLF LTD", (309, 378, 268, 219, 202, 234, 236, 128, 177)),
    ("500124", "DRREDDY", "DR REDDYS LABORATORIES LTD",
     (1275, 1440, 1639, 1480, 1760, 1649, 1767, 2376, 2565)),
    ("532155", "GAIL", "GAIL (INDIA) LTD", (410, 485, 464, 412, 376, 383, 318, 328, 375)),
    ("500300", "GRASIM", "GRASIM INDUSTRIES LTD",
     (2800, 2210, 2459, 2330, 2627, 3310, 2813, 2714, 2888)),
    ("532281", "HCLTECH", "HCL TECHNOLOGIES LTD",
     (358, 420, 477, 408, 483, 577, 796, 1087, 1390)),
    ("500182", "HEROMOTOCO", "HERO MOTOCORP LTD",
     (1945, 1860, 1589, 1930, 2055, 1879, 1542, 2010, 2275)),
    ("500440", "HINDALCO", "HINDALCO INDUSTRIES LTD",
     (181, 197, 209, 131, 129, 120, 92, 112, 142)),
    ("500696", "HINDUNILVR", "HINDUSTAN UNILEVER LTD",
     (239, 309, 287, 340, 410, 546, 466, 627, 604)),
    ("500010", "HDFC", "HOUSING DEVELOPMENT FINANCE CORP LTD",
     (544, 733, 701, 640, 673, 773, 826, 764, 884)),
    ("532174", "ICICIBANK", "ICICI BANK LTD", (953, 1110, 1116, 875, 890, 1058, 1045, 884, 1245)),
    ("532659", "IDFC", "IDFC LTD", (161, 203, 155, 109, 135, 154, 144, 88, 123)),
    ("530965", "IOC", "INDIAN OIL CORPORATION LTD",
     (297, 418, 331, 311, 263, 250, 281, 208, 279)),
    ("500209", "INFY", "INFOSYS LTD", (2615, 3045, 3240, 2530, 2865, 2535, 2889, 3010, 3283)),
    ("500875", "ITC", "ITC LTD", (132, 178, 182, 198, 227, 272, 309, 340, 353)),
    ("532286", "JINDALSTEL", "JINDAL STEEL & POWER LTD",
     (702, 705, 697, 503, 545, 429, 348, 238, 292)),
    ("500247", "KOTAKBANK", "KOTAK MAHINDRA BANK LTD",
     (375, 480, 457, 458, 545, 645, 653, 677, 781)),
    ("500257", "LUPIN", "LUPIN LTD", (325, 388, 416, 473, 530, 595, 629, 857, 933)),
    ("500520", "M&M", "MAHINDRA & MAHINDRA LTD", (541, 700, 700, 804, 697, 865, 861, 828, 981)),
    ("532500", "MARUTI", "MARUTI SUZUKI INDIA LTD",
     (1418, 1440, 1262, 1080, 1349, 1350, 1282, 1360, 1971)),
    ("500790", "NESTLEIND", "NESTLE INDIA LTD",
     (2680, 3340, 3685, 4250, 4620, 4400, 4563, 5020, 5013)),
    ("532555", "NTPC", "NTPC LTD", (207, 217, 193, 167, 163, 168, 142, 148, 120)),
    ("500312", "ONGC", "OIL AND NATURAL GAS CORPORATION LTD",
     (275, 350, 291, 264, 267, 281, 311, 269, 319)),
    ("532898", "POWERGRID", "POWER GRID CORPORATION OF INDIA LTD",
     (107, 107, 102, 98, 108, 120, 106, 98, 105)),
    ("532461", "PNB", "PUNJAB NATIONAL BANK", (1013, 1290, 1220, 953, 925, 841, 719, 452, 744)),
    ("500325", "RELIANCE", "RELIANCE INDUSTRIES LTD",
     (1075, 987, 1048, 808, 749, 837, 773, 822, 930)),
    ("500112", "SBIN", "STATE BANK OF INDIA",
     (2079, 3233, 2768, 1911, 2096, 2239, 2072, 1615, 1917)),
    ("532540", "TCS", "TATA CONSULTANCY SERVICES LTD",
     (780, 925, 1183, 1037, 1169, 1296, 1575, 1927, 2132)),
    ("500470", "TATASTEEL", "TATA STEEL LTD", (632, 652, 621, 415, 471, 401, 313, 273, 394)),
    ("532538", "ULTRACEMCO", "ULTRATECH CEMENT LTD",
     (1150, 1040, 1131, 1136, 1508, 1967, 1869, 1804, 2189)),
    ("532648", "YESBANK", "YES BANK LTD", (255, 350, 310, 272, 367, 382, 429, 288, 414)),
)

# The cases that the sample is there to show; nothing else happens in these accounts and scrips.
# date, account, side, symbol, quantity, rate, "" or the lot rate, D(elivery) or N(on delivery)
CASE_TRADES = (
    # bought and sold on one day
    ("18/05/2011", "R1", "P", "TATASTEEL", "100", "590.45", "", "N"),
    ("18/05/2011", "R1", "S", "TATASTEEL", "100", "596.8", "590.45", "N"),
    ("21/11/2011", "R1", "P", "TATASTEEL", "150", "392.1", "", "N"),
    ("21/11/2011", "R1", "S", "TATASTEEL", "150", "388.25", "392.1", "N"),
    # on the first anniversary and the day after
    ("05/07/2011", "R1", "P", "HINDUNILVR", "100", "342.15", "", "D"),
    ("05/07/2012", "R1", "S", "HINDUNILVR", "50", "448.6", "", "D"),
    ("06/07/2012", "R1", "S", "HINDUNILVR", "50", "452.3", "", "D"),
    ("12/12/2012", "M1", "P", "TCS", "40", "1248.7", "", "D"),
    ("12/12/2013", "M1", "S", "TCS", "20", "2041.35", "", "D"),
    ("13/12/2013", "M1", "S", "TCS", "20", "2009.6", "", "D"),
    # bought on 29 February
    ("29/02/2012", "S1", "P", "ITC", "200", "207.35", "", "D"),
    ("28/02/2013", "S1", "S", "ITC", "100", "294.8", "", "D"),
    ("01/03/2013", "S1", "S", "ITC", "100", "297.45", "", "D"),
    # one sale over two purchases at one rate
    ("10/05/2011", "S1", "P", "HDFC", "60", "668.5", "", "D"),
    ("23/05/2011", "S1", "P", "HDFC", "60", "668.5", "", "D"),
    ("17/10/2011", "S1", "S", "HDFC", "100", "672.25", "", "D"),
    # the newer lot is sold first, by choice
    ("06/06/2011", "N1", "P", "INFY", "20", "2823.4", "", "D"),
    ("10/10/2011", "N1", "P", "INFY", "20", "2471.15", "", "D"),
    ("16/01/2012", "N1", "S", "INFY", "20", "2580", "2471.15", "D"),
    ("20/06/2012", "N1", "S", "INFY", "20", "2475.5", "2823.4", "D"),
    # shares moved between own accounts, then both parts sold
    ("02/04/2012", "R1", "S", "ONGC", "80", "268.4", "", "D"),
    ("02/04/2012", "R2", "S", "ONGC", "120", "268.55", "", "D"),
    # shares given to another member of the family, and sold there
    ("20/06/2011", "S1", "P", "LUPIN", "100", "432.9", "", "D"),
    ("19/11/2012", "N1", "S", "LUPIN", "50", "571.25", "", "D"),
    # shares received from one
    ("18/03/2013", "R1", "S", "AXISBANK", "30", "1356.2", "", "D"),
    # opening stock of two dates at one rate
    ("26/07/2011", "R2", "S", "NTPC", "200", "184.6", "", "D"),
    # one lot sold over three years
    ("21/06/2011", "N2", "P", "GAIL", "150", "438.25", "", "D"),
    ("03/01/2012", "N2", "S", "GAIL", "50", "381.5", "", "D"),
    ("11/12/2012", "N2", "S", "GAIL", "50", "358.75", "", "D"),
    ("09/12/2013", "N2", "S", "GAIL", "50", "342.1", "", "D"),
    # one sale out of three lots
    ("02/05/2011", "M1", "P", "DRREDDY", "15", "1588.6", "", "D"),
    ("25/08/2011", "M1", "P", "DRREDDY", "10", "1512.35", "", "D"),
    ("20/09/2011", "M1", "P", "DRREDDY", "20", "1495.8", "", "D"),
    ("27/03/2012", "M1", "S", "DRREDDY", "40", "1748.9", "", "D"),
    # bought and sold on one day at the rate of an older purchase, which is used up first
    ("14/06/2011", "R2", "P", "CIPLA", "100", "331.5", "", "D"),
    ("17/07/2012", "R2", "P", "CIPLA", "100", "331.5", "", "N"),
    ("17/07/2012", "R2", "S", "CIPLA", "100", "335.2", "331.5", "N"),
    # average rates with more than two decimals
    ("05/12/2011", "N1", "P", "HCLTECH", "60", "412.3375", "", "D"),
    ("28/03/2012", "N1", "S", "HCLTECH", "60", "486.125", "", "D"),
)
# account, symbol, quantity, rate, purchase date
CASE_OPENINGS = (
    ("R1", "ONGC", "200", "280.15", "14/03/2011"),
    ("M1", "AXISBANK", "60", "1182.3", "08/06/2010"),
    ("R2", "NTPC", "150", "199.2", "23/07/2010"),
    ("R2", "NTPC", "150", "199.2", "10/01/2011"),
)
# date, from, to, symbol, rate, quantity
CASE_TRANSFERS = (
    ("12/09/2011", "R1", "R2", "ONGC", "280.15", "120"),
    ("15/11/2011", "S1", "N1", "LUPIN", "432.9", "50"),
    ("04/02/2013", "M1", "R1", "AXISBANK", "1182.3", "30"),
)

# What each account trades in besides.
UNIVERSE = {
    "R1": "RELIANCE SBIN ICICIBANK BHARTIARTL MARUTI COALINDIA ACC M&M LUPIN IDFC GRASIM HINDALCO",
    "R2": "KOTAKBANK BANKBARODA DLF BAJAJ-AUTO JINDALSTEL ITC ULTRACEMCO IOC YESBANK",
    "S1": "NESTLEIND COLPAL DABUR HINDUNILVR INFY POWERGRID AMBUJACEM TCS RELIANCE HEROMOTOCO",
    "N1": "TATASTEEL YESBANK AXISBANK ICICIBANK MARUTI HINDALCO JINDALSTEL BHARTIARTL PNB M&M",
    "N2": "DLF IDFC RELIANCE COALINDIA CIPLA KOTAKBANK SBIN ONGC",
    "M1": "ITC HDFC DABUR HCLTECH LUPIN COLPAL NTPC BAJAJ-AUTO",
}
