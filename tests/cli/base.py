"""A small portfolio that the tests change one thing of."""

from pathlib import Path

BILL_HEADER = ("client_code,account_no,bill_no,bill_date,broker,exchange,side,scrip_code,quantity,"
               "rate,brokerage,service_tax,stt,fo,lot_rate,other_charges")
OPENING_HEADER = "client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date"
TRANSFER_HEADER = "date,from_account,to_account,scrip_code,rate,quantity"
CLIENT_HEADER = "code,name,dob,pan,sex"
MONEY_HEADER = "client_code,broker,mode,amount,date,payment_mode,cheque_no,cheque_date"

BASE = {
    "participants.csv": "name,depository,dp_id\nNIDHI,NSDL,IN399901\n",
    "clients.csv": "code,name,group_code\nAN,ANAND KAMDHENU,KAM\nBI,BINA KAMDHENU,KAM\n",
    "accounts.csv": "client_code,participant,dp_id,account_no\nAN,NIDHI,IN399901,A1\n"
                    "BI,NIDHI,IN399901,B1\nAN,NIDHI,IN399901,A2\n",
    "brokers.csv": "name,city\nLOTUS,MUMBAI\n",
    "scrips.csv": "code,name,type,class\n600001,ZINC ALLOYS LTD,EQUITY,A\n"
                  "600002,ALUM CASTINGS LTD,EQUITY,A\n",
    "percentages.csv": "fyear,name,percent,as_on\n2011-12,Service Tax,10.3,01/04/2011\n",
    "opening.csv": OPENING_HEADER + "\nAN,A1,2011-12,600001,100,50,05/05/2010\n",
    "bills.csv": BILL_HEADER + "\nAN,A1,1,02/05/2011,LOTUS,NSE,P,600001,10,60,0.25,,,0,,5\n",
    "payments.csv": MONEY_HEADER + "\nAN,LOTUS,Payment,100,01/06/2011,Cash,,\n",
    "rates.csv": "date,scrip_code,rate\n31/03/2012,600001,70\n",
}


def write(folder: Path, contents: dict) -> Path:
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in contents.items():
        (folder / name).write_bytes(content if isinstance(content, bytes) else content.encode())
    return folder
